"""Has gdb show elements, documents, numbers and paths as what they say.

Where this is installed for the library's path gdb reads it by itself; otherwise `source` it.

Only memory is read, so a core file will do, and at the places that this version of the library
gives things, in the binary interface of GNU/Linux with 64 bits. A compiler leaves the description
of a class with virtual functions to who builds that class, so an application's own debug
information tells no more of elements than their names. Of a variable of such a class gdb then says
"<incomplete type>" among others (`info locals`, `bt full`): `print` it by its name, or have the
application compiled with -femit-class-debug-always (clang++: -fstandalone-debug).
"""

import gdb
import gdb.printing

_WORD = 8

# Of an element: the table of virtual functions, the parent, the key, the index; then its own.
_ELEMENT_SIZE = 7 * _WORD

# Of a document.
_DOM_ROOT = 1 * _WORD
_DOM_INCLUDE_META = 2 * _WORD
_DOM_META_KEY = 3 * _WORD

# Of a number: which binary form it has, that form, the bytes of its text and how many they are, or
# the pointer to a string.
_NUMBER_BINARY = 1 * _WORD
_NUMBER_TEXT = 2 * _WORD
_NUMBER_LENGTH = _NUMBER_TEXT + 23
_MOST_INSIDE = 22
_IS_STRING = 0xFF
_BINARY_FORMS = {1: ("long", int), 2: ("unsigned long", int), 3: ("double", float)}

# Of a std::list: the first node and the last one, then how many there are. Of a node: the next one
# and the one before, then the value.
_LIST_SIZE = 2 * _WORD
_NODE_VALUE = 2 * _WORD
# Of a member in its node: the key, a std::string, then the element.
_MEMBER_ELEMENT = 4 * _WORD

# Classes, as compilers spell them for `std::type_info`.
_BARE_ELEMENT = "N2zo7Tessera7ElementE"
_BASIC_ELEMENT = "N2zo7Tessera13TBasicElementI"
_STRING_NAME = "NSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE"


def _read(type_name, address):
    return gdb.Value(address).cast(gdb.lookup_type(type_name).pointer()).dereference()


def _word(address):
    return int(_read("unsigned long", address))


def _characters(address):
    return gdb.Value(address).cast(gdb.lookup_type("char").pointer())


def _string(address):
    """Where the text of the std::string at `address` begins, and its length."""
    return _word(address), _word(address + _WORD)


def _quoted(address):
    """The std::string at `address`, for gdb to show with its marks, escapes and limits."""
    start, length = _string(address)
    # Memory that holds no string yet may claim any length; gdb takes an int.
    return _characters(start).lazy_string("UTF-8", min(length, 2**31 - 1))


def _plain(start, length):
    """Without marks, and no longer than gdb shows texts."""
    limit = gdb.parameter("print elements") or length
    text = _characters(start).string("UTF-8", "backslashreplace", min(length, limit))
    return text + "..." if length > limit else text


def _type_info(address):
    """Where the `std::type_info` of the polymorphic object at `address` stands."""
    return _word(_word(address) - _WORD)


def _class_name(type_info):
    """As compilers spell it, such as N2zo7Tessera5ArrayE."""
    return _characters(_word(type_info + _WORD)).string("ASCII", "replace").lstrip("*")


def _bases(type_info):
    """The `std::type_info` of each direct base."""
    sort = _class_name(_type_info(type_info))
    if sort == "N10__cxxabiv120__si_class_type_infoE":
        return [_word(type_info + 2 * _WORD)]
    if sort == "N10__cxxabiv121__vmi_class_type_infoE":
        count = int(_read("unsigned int", type_info + 2 * _WORD + 4))
        return [_word(type_info + (3 + 2 * i) * _WORD) for i in range(count)]
    return []


def _stand_in():
    """Takes the place of a class of elements that no debug information describes, so that gdb does
    not know it by name. Nothing of an application's is of this type."""
    return gdb.lookup_type("char").volatile().array(_ELEMENT_SIZE - 1)


def _element(address):
    """The element at `address`, as a child. It is a reference, for gdb hands no value to a printer
    whose type is not described, but does so with a reference to one."""
    if address == 0:
        return "0x0"
    try:
        kind = gdb.lookup_type("zo::Tessera::Element")
    except gdb.error:
        kind = _stand_in()
    return gdb.Value(address).cast(kind.pointer()).dereference().reference_value()


class _Text:
    """What is told in a few words, without children."""

    def __init__(self, text):
        self._text = text

    def to_string(self):
        return self._text


class _String:
    """A std::string, and what adds no data to one."""

    def __init__(self, address):
        self._address = address

    def to_string(self):
        return _quoted(self._address)

    def display_hint(self):
        return "string"


class _Number:
    def __init__(self, address):
        self._address = address

    def to_string(self):
        start = self._address + _NUMBER_TEXT
        length = int(_read("unsigned char", self._address + _NUMBER_LENGTH))
        if length == _IS_STRING:
            start, length = _string(_word(start))
        elif length > _MOST_INSIDE:
            return "<no number>"
        return _plain(start, length) if length else self._binary()

    def _binary(self):
        form = _BINARY_FORMS.get(int(_read("int", self._address)))
        if not form:
            return "<empty text>"
        type_name, convert = form
        return str(convert(_read(type_name, self._address + _NUMBER_BINARY)))


class _Container:
    """An array or an object. Both hold a pointer to their list and what finds things in it."""

    def __init__(self, address):
        self._address = address

    def to_string(self):
        contents = self._contents()
        if contents == 0:
            return f"{self._NAME} without contents"  # moved from, or not yet made
        size = _word(contents + _LIST_SIZE)
        return f"{self._NAME} of {size}" if size else f"empty {self._NAME}"

    def display_hint(self):
        return self._HINT

    def _contents(self):
        return _word(self._address + _ELEMENT_SIZE)

    def _values(self):
        """Where the list has its values."""
        contents = self._contents()
        if contents == 0:
            return
        node = contents
        for _ in range(_word(contents + _LIST_SIZE)):
            node = _word(node)
            yield node + _NODE_VALUE


class _Array(_Container):
    _NAME = "array"
    _HINT = "array"

    def children(self):
        for i, value in enumerate(self._values()):
            yield f"[{i}]", _element(_word(value))


class _Object(_Container):
    _NAME = "object"
    _HINT = "map"

    def children(self):
        for i, value in enumerate(self._values()):
            yield f"key {i}", _quoted(value)
            yield f"value {i}", _element(_word(value + _MEMBER_ELEMENT))


class _Document:
    def __init__(self, address):
        self._address = address

    def to_string(self):
        return "document" if _word(self._address + _DOM_ROOT) else "empty document"

    def children(self):
        yield "root", _element(_word(self._address + _DOM_ROOT))
        yield "includeMeta", _read("bool", self._address + _DOM_INCLUDE_META)
        yield "metaKey", _quoted(self._address + _DOM_META_KEY)


def _null(_):
    return _Text("null")


def _boolean(address):
    return _Text(str(_read("bool", address + _ELEMENT_SIZE)))


def _own_element(address):
    """Of a class of the application's own that derives from none of the kinds, or not whole: while
    its constructor or its destructor runs it is a bare element."""
    name = _class_name(_type_info(address))
    if name == _BARE_ELEMENT:
        return _Text("<element that is being made or destroyed>")
    readable = gdb.execute(f"demangle _ZTS{name}", to_string=True).strip()
    return _Text("element of class " + readable.replace("typeinfo name for ", ""))


_KINDS = {
    _BARE_ELEMENT: _own_element,
    "N2zo7Tessera4NullE": _null,
    _BASIC_ELEMENT + "bEE": _boolean,
    _BASIC_ELEMENT + "NS0_11BasicNumberEEE": lambda address: _Number(address + _ELEMENT_SIZE),
    _BASIC_ELEMENT + _STRING_NAME + "EE": lambda address: _String(address + _ELEMENT_SIZE),
    "N2zo7Tessera5ArrayE": _Array,
    "N2zo7Tessera6ObjectE": _Object,
}


def _kind(type_info):
    """What shows an element of that class, which need not be the library's own."""
    known = _KINDS.get(_class_name(type_info))
    if known:
        return known
    return next(filter(None, map(_kind, _bases(type_info))), None)


def _show_element(address):
    kind = _kind(_type_info(address))
    return kind(address) if kind else _Text("<no element>")


def _printer(show):
    """Has `show` make the printer of a value by its address, which a reference gives as well."""

    def make(value):
        if value.address is None:
            return None  # a copy in gdb's own memory
        try:
            return show(int(value.address))
        except gdb.error as error:
            return _Text(f"<error: {error}>")

    return make


class _Collection(gdb.printing.RegexpCollectionPrettyPrinter):
    def __call__(self, value):
        if value.type.code == gdb.TYPE_CODE_REF and value.type == _stand_in().reference():
            return _printer(_show_element)(value)
        return super().__call__(value)


def _collection():
    printers = _Collection("zotessera")
    for name, pattern, show in (
        ("Element", "Element|Null|TBasicElement<.*>", _show_element),
        ("Object", "Object", _show_element),
        ("Array", "Array", _show_element),
        ("BasicNumber", "BasicNumber", _Number),
        ("Path", "Path", _String),
        ("Dom", "Dom", _Document),
    ):
        printers.add_printer(name, f"^zo::Tessera::({pattern})$", _printer(show))
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), _collection(), replace=True)
