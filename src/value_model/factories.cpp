#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/TreeMemory.h"

namespace zo::Tessera {

namespace {

/// `where` is empty, a parent, or a parent and a key.
template <class... Where>
Element* createDefault(EType type, const Where&... where) {
    switch (type) {
        case etBoolean:
            return Element::createBoolean(false, where...);
        case etNumber:
            return Element::createNumber(BasicNumber(), where...);
        case etString:
            return Element::createString(std::string(), where...);
        case etObject:
            return Element::createObject(where...);
        case etArray:
            return Element::createArray(where...);
        default:
            return Element::createNull(where...);
    }
}

template <class T>
std::unique_ptr<Element> numberValue(T number) {
    BasicNumber value;
    value.set(number);
    return std::unique_ptr<Element>(Element::createNumber(value));
}

}  // namespace

Element* Element::createNull() {
    return newInTree<Null>();
}

Element* Element::createNull(Element* parent, const std::string& key) {
    return newInTree<Null>(parent, key);
}

Element* Element::createNull(Element* parent) {
    return newInTree<Null>(parent);
}

Element* Element::createBoolean(bool value) {
    return newInTree<TBasicElement<bool>>(value);
}

Element* Element::createBoolean(bool value, Element* parent, const std::string& key) {
    return newInTree<TBasicElement<bool>>(value, parent, key);
}

Element* Element::createBoolean(bool value, Element* parent) {
    return newInTree<TBasicElement<bool>>(value, parent);
}

Element* Element::createNumber(const BasicNumber& value) {
    return newInTree<TBasicElement<BasicNumber>>(value);
}

Element* Element::createNumber(const BasicNumber& value, Element* parent, const std::string& key) {
    return newInTree<TBasicElement<BasicNumber>>(value, parent, key);
}

Element* Element::createNumber(const BasicNumber& value, Element* parent) {
    return newInTree<TBasicElement<BasicNumber>>(value, parent);
}

Element* Element::createString(const std::string& value) {
    return newInTree<TBasicElement<std::string>>(value);
}

Element* Element::createString(const std::string& value, Element* parent, const std::string& key) {
    return newInTree<TBasicElement<std::string>>(value, parent, key);
}

Element* Element::createString(const std::string& value, Element* parent) {
    return newInTree<TBasicElement<std::string>>(value, parent);
}

Element* Element::createObject() {
    return newInTree<Object>();
}

Element* Element::createObject(Element* parent, const std::string& key) {
    return newInTree<Object>(parent, key);
}

Element* Element::createObject(Element* parent) {
    return newInTree<Object>(parent);
}

Element* Element::createArray() {
    return newInTree<Array>();
}

Element* Element::createArray(Element* parent, const std::string& key) {
    return newInTree<Array>(parent, key);
}

Element* Element::createArray(Element* parent) {
    return newInTree<Array>(parent);
}

Element* Element::create(EType type) {
    return createDefault(type);
}

Element* Element::create(EType type, Element* parent, const std::string& key) {
    return createDefault(type, parent, key);
}

Element* Element::create(EType type, Element* parent) {
    return createDefault(type, parent);
}

std::unique_ptr<Element> value() {
    return std::unique_ptr<Element>(Element::createNull());
}

std::unique_ptr<Element> value(bool boolean) {
    return std::unique_ptr<Element>(Element::createBoolean(boolean));
}

std::unique_ptr<Element> value(const BasicNumber& number) {
    return std::unique_ptr<Element>(Element::createNumber(number));
}

std::unique_ptr<Element> value(int number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(unsigned int number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(long number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(unsigned long number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(long long number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(unsigned long long number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(double number) {
    return numberValue(number);
}

std::unique_ptr<Element> value(const std::string& text) {
    return std::unique_ptr<Element>(Element::createString(text));
}

std::unique_ptr<Element> value(const char* text) {
    if (!text) {
        throw Exception("Null pointer exception: text may not be null");
    }
    return value(std::string(text));
}

std::unique_ptr<Element> exactValue(double number) {
    BasicNumber exact;
    exact.setExact(number);
    return value(exact);
}

std::unique_ptr<Element> object() {
    return std::unique_ptr<Element>(Element::createObject());
}

std::unique_ptr<Element> array() {
    return std::unique_ptr<Element>(Element::createArray());
}

}  // namespace zo::Tessera
