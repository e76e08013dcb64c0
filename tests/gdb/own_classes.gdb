python stop_in("showOwnClasses")
print anyDiscount
print anyOpaque
print document
print opaque
