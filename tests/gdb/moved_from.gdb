python stop_in("showEmpty")
print movedFrom
print movedTo
