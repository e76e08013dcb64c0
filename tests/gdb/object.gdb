python stop_in("showTree")
print object
set print pretty on
print object
