python stop_in("showEmpty")
print without
print array
print object
