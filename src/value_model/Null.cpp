#include <zo/Tessera/Null.h>

#include <ostream>

#include <zo/Tessera/Exception.h>

#include "value_model/kinds.h"

namespace zo::Tessera {

namespace {

[[noreturn]] void refuseReading() {
    // Callers match on this text.
    throw Exception("Reading from srteam not (yet) supported for Tessera::Null.");
}

}  // namespace

Null::Null() = default;

Null::Null(Element* parent, const std::string& key) : Element(parent, key) {}

Null::Null(Element* parent) : Element(parent) {}

Null::~Null() = default;

Null* Null::clone() const {
    return new Null(*this);
}

EType Null::type() const {
    return etNull;
}

size_t Null::size() const {
    return 0;
}

int Null::compare(const Element& other) const {
    return compareKinds(*this, other);
}

std::ostream& Null::writeTo(std::ostream& out) const {
    return out << "null";
}

std::wostream& Null::writeTo(std::wostream& out) const {
    return out << L"null";
}

std::istream& Null::readFrom(std::istream&) {
    refuseReading();
}

std::wistream& Null::readFrom(std::wistream&) {
    refuseReading();
}

}  // namespace zo::Tessera
