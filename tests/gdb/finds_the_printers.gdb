python stop_in("showTree")
print document
