python stop_in("showTree")
print array
set print array-indexes on
print array
set print pretty on
print array
