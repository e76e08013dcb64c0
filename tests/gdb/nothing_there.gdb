python stop_in("showNothing")
print element
print document
print path
print number
print holed
python show("*element")
python show("*document")
python show("*path")
python show("*number")
python show("*elementToBe")
python show("*documentToBe")
python show("*pathToBe")
python show("*numberToBe")
python show("*stranger")
set var *(long*)room = (long)&'vtable for zo::Tessera::Element' + 16
python show("*elementToBe")
set var *(long*)room = (long)&'vtable for zo::Tessera::Array' + 16
python show("*elementToBe")
