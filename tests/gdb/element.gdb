python stop_in("showTree")
print root
print text
print null
print boolean
print price
print title
set print max-depth 1
print root
