#include <zo/Tessera/Null.h>

#include <ostream>

#include "support/TreeMemory.h"
#include "value_model/elementRules.h"

namespace zo::Tessera {

Null::Null() = default;

Null::Null(Element* parent, const std::string& key) : Element(parent, key) {}

Null::Null(Element* parent) : Element(parent) {}

Null::~Null() = default;

Null* Null::clone() const {
    return newInTree<Null>(*this);
}

EType Null::type() const {
    return etNull;
}

size_t Null::size() const {
    return 0;
}

int Null::compare(const Element& other) const {
    return compareElements(*this, other, [] { return 0; });
}

std::ostream& Null::writeTo(std::ostream& out) const {
    return out << "null";
}

std::wostream& Null::writeTo(std::wostream& out) const {
    return out << L"null";
}

std::istream& Null::readFrom(std::istream&) {
    refuseReading("Null");
}

std::wistream& Null::readFrom(std::wistream&) {
    refuseReading("Null");
}

}  // namespace zo::Tessera
