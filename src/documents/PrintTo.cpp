#include <zo/Tessera/PrintTo.h>

#include <exception>
#include <ostream>
#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "documents/documentText.h"

namespace zo::Tessera {

namespace {

/// Puts the text that `make` returns, or says why there is none: a message about a failure must not
/// be the end of the program that reports it.
template <class Make>
void show(std::ostream& out, const Make& make) {
    std::string text;
    try {
        text = make();
    } catch (const std::exception& error) {
        out << '<' << error.what() << '>';
        return;
    } catch (...) {
        out << "<an exception that has no text>";
        return;
    }
    out << text;
}

std::string shownText(const Dom& document) {
    std::string text = document.root() ? shownText(*document.root()) : "<no root>";
    if (!document.includeMeta()) {
        text += " <includeMeta: false>";
    }
    if (document.metaKey() != Dom::k_defaultMetaKey) {
        text += " <metaKey: " + shownText(TBasicElement<std::string>(document.metaKey())) + '>';
    }
    return text;
}

}  // namespace

void PrintTo(const Element& element, std::ostream* out) {
    show(*out, [&] { return shownText(element); });
}

// GoogleTest's own template would fit these better than the overload for their base.

void PrintTo(const Null& element, std::ostream* out) {
    PrintTo(static_cast<const Element&>(element), out);
}

void PrintTo(const TBasicElement<bool>& element, std::ostream* out) {
    PrintTo(static_cast<const Element&>(element), out);
}

void PrintTo(const TBasicElement<BasicNumber>& element, std::ostream* out) {
    PrintTo(static_cast<const Element&>(element), out);
}

void PrintTo(const TBasicElement<std::string>& element, std::ostream* out) {
    PrintTo(static_cast<const Element&>(element), out);
}

void PrintTo(const Object& element, std::ostream* out) {
    PrintTo(static_cast<const Element&>(element), out);
}

void PrintTo(const Array& element, std::ostream* out) {
    PrintTo(static_cast<const Element&>(element), out);
}

void PrintTo(const BasicNumber& number, std::ostream* out) {
    show(*out, [&] { return shownText(TBasicElement<BasicNumber>(number)); });
}

void PrintTo(const Path& path, std::ostream* out) {
    show(*out, [&] { return shownText(TBasicElement<std::string>(path)); });
}

void PrintTo(const Dom& document, std::ostream* out) {
    show(*out, [&] { return shownText(document); });
}

}  // namespace zo::Tessera
