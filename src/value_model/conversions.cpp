#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/TBasicElement.h>

namespace zo::Tessera {

Element::operator bool() {
    return getBooleanValue().value();
}

Element::operator bool() const {
    return getBooleanValue().value();
}

Element::operator BasicNumber&() {
    return getNumberValue().value();
}

Element::operator const BasicNumber&() const {
    return getNumberValue().value();
}

Element::operator std::string&() {
    return getStringValue().value();
}

Element::operator const std::string&() const {
    return getStringValue().value();
}

Element::operator char() {
    return getNumberValue().value().toChar();
}

Element::operator char() const {
    return getNumberValue().value().toChar();
}

Element::operator unsigned char() {
    return getNumberValue().value().toUChar();
}

Element::operator unsigned char() const {
    return getNumberValue().value().toUChar();
}

Element::operator short() {
    return getNumberValue().value().toShort();
}

Element::operator short() const {
    return getNumberValue().value().toShort();
}

Element::operator unsigned short() {
    return getNumberValue().value().toUShort();
}

Element::operator unsigned short() const {
    return getNumberValue().value().toUShort();
}

Element::operator int() {
    return getNumberValue().value().toInt();
}

Element::operator int() const {
    return getNumberValue().value().toInt();
}

Element::operator unsigned int() {
    return getNumberValue().value().toUInt();
}

Element::operator unsigned int() const {
    return getNumberValue().value().toUInt();
}

Element::operator long() {
    return getNumberValue().value().toLong();
}

Element::operator long() const {
    return getNumberValue().value().toLong();
}

Element::operator unsigned long() {
    return getNumberValue().value().toULong();
}

Element::operator unsigned long() const {
    return getNumberValue().value().toULong();
}

Element::operator long long() {
    return getNumberValue().value().toLongLong();
}

Element::operator long long() const {
    return getNumberValue().value().toLongLong();
}

Element::operator unsigned long long() {
    return getNumberValue().value().toULongLong();
}

Element::operator unsigned long long() const {
    return getNumberValue().value().toULongLong();
}

Element::operator double() const {
    return getNumberValue().value().toDouble();
}

Element::operator float() const {
    return getNumberValue().value().toFloat();
}

}  // namespace zo::Tessera
