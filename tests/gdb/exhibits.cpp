// What gdb is to show: the variables of the functions. It stops two frames below them.

#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

struct Currency {
    virtual ~Currency() = default;
    int m_digits = 2;
};

/// A number of the application's own. The element is not at the beginning of its object.
class Price : public Currency, public TBasicElement<BasicNumber> {
public:
    explicit Price(const BasicNumber& amount) : TBasicElement(amount) {}
    Price(const Price&) = default;
    Price* clone() const override { return new Price(*this); }
};

/// One step further from the library's classes.
class Discount : public Price {
public:
    using Price::Price;
};

/// Of none of the library's kinds.
class Opaque : public Element {
public:
    Opaque* clone() const override { return new Opaque(*this); }
    EType type() const override { return etEmpty; }
    size_t size() const override { return 0; }
    std::ostream& writeTo(std::ostream& out) const override { return out; }
    std::wostream& writeTo(std::wostream& out) const override { return out; }
    std::istream& readFrom(std::istream& in) override { return in; }
    std::wistream& readFrom(std::wistream& in) override { return in; }
};

template <class T>
BasicNumber number(const T& value) {
    BasicNumber result;
    result.set(value);
    return result;
}

[[gnu::noinline]] void standStill() {}

/// Uses the variables, which would be warned of otherwise.
template <class... Exhibits>
void look(const Exhibits&...) {
    standStill();
}

Dom exampleDocument() {
    return readDocument(R"({
        "title": "Cup \"XL\"",
        "price": 1.50,
        "new": true,
        "maker": null,
        "sizes": [1, [], {"unit": "ml", "of": [250, 1e3]}],
        "": {},
        "gr\u00f6\u00dfe": "a\nb\u0000c"
    })");
}

void showTree() {
    const Dom document = exampleDocument();
    const Element& root = *document.root();
    const Object& object = root.getObjectValue();
    const Array& array = root.get("sizes").getArrayValue();
    const Element& text = root.get("title");
    const Element& null = root.get("maker");
    const TBasicElement<bool>& boolean = root.get("new").getBooleanValue();
    const TBasicElement<BasicNumber>& price = root.get("price").getNumberValue();
    const TBasicElement<std::string>& title = root.get("title").getStringValue();
    look(document, root, object, array, text, null, boolean, price, title);
}

void showLong() {
    const std::unique_ptr<Element> ownedArray = zo::Tessera::array();
    const std::unique_ptr<Element> ownedObject = zo::Tessera::object();
    for (int i = 0; i < 300; ++i) {
        ownedArray->set("[*]", value(i));
        ownedObject->set("key" + std::to_string(i), value(i));
    }
    const std::unique_ptr<Element> ownedText = value(std::string(100, '-') + std::string(200, '+'));
    const Element& array = *ownedArray;
    const Element& object = *ownedObject;
    const Element& text = *ownedText;
    const BasicNumber digits = number(std::string(300, '7'));
    look(array, object, text, digits);
}

void showNumbers() {
    const BasicNumber zero;
    const BasicNumber fromText = number("12.50");
    const BasicNumber asString = fromText;
    asString.toString();
    const BasicNumber longText = number("3.14159265358979323846264338327950288");
    const BasicNumber emptyText = number("");
    const BasicNumber negative = number(-7);
    const BasicNumber largest = number(~0ULL);
    const BasicNumber floating = number(0.1);
    const BasicNumber written = number(1234567.0);
    written.toString();
    look(zero, fromText, asString, longText, emptyText, negative, largest, floating, written);
}

void showPaths() {
    const Path path = "sizes[2].of[0]";
    const Path longPath = "a.member.that.has.a.path.of.its.own";
    const Path empty;
    const Path escaped = R"(x\.y)";
    look(path, longPath, empty, escaped);
}

void showEmpty() {
    const Dom without;
    const Dom array = readDocument("[]");
    const Dom object = readDocument("{}");
    Dom movedFrom = readDocument("[1, 2]");
    movedFrom.setIncludeMeta(false);
    movedFrom.setMetaKey("about");
    const Dom movedTo = std::move(movedFrom);
    look(without, array, object, movedFrom, movedTo);
}

void showOwnClasses() {
    const Discount discount(number("0.2"));
    const Opaque opaque;
    const Element& anyDiscount = discount;
    const Element& anyOpaque = opaque;
    Dom document = readDocument("[1]");
    document.root()->getArrayValue().push_back(new Discount(number(3)));
    document.root()->getArrayValue().push_back(new Opaque);
    look(discount, opaque, anyDiscount, anyOpaque, document);
}

void showNothing() {
    const Element* const element = nullptr;
    const Dom* const document = nullptr;
    const Path* const path = nullptr;
    const BasicNumber* const number = nullptr;
    // As somebody leaves it who replaces pointers through an iterator.
    Dom holed = readDocument("[1, 2]");
    Element*& first = *holed.root()->getArrayValue().begin();
    Element* const taken = std::exchange(first, nullptr);
    // Where nothing was made yet.
    alignas(Object) const unsigned char room[sizeof(Object)] = {};
    const auto* const elementToBe = reinterpret_cast<const Element*>(room);
    const auto* const documentToBe = reinterpret_cast<const Dom*>(room);
    const auto* const pathToBe = reinterpret_cast<const Path*>(room);
    const auto* const numberToBe = reinterpret_cast<const BasicNumber*>(room);
    const auto* const stranger = reinterpret_cast<const Element*>(&holed);
    look(element, document, path, number, holed, elementToBe, documentToBe, pathToBe, numberToBe,
         stranger);
    first = taken;
}

}  // namespace

int main() {
    showTree();
    showLong();
    showNumbers();
    showPaths();
    showEmpty();
    showOwnClasses();
    showNothing();
    return 0;
}
