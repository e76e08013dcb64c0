python stop_in("showLong")
set print elements 4
print array
print object
print text
print digits
set print elements unlimited
print digits
