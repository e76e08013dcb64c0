python stop_in("showPaths")
print path
print longPath
print empty
print escaped
