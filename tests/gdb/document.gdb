python stop_in("showTree")
print document
set print pretty on
print document
