#include <zo/Tessera/DomParser.h>

#include <istream>
#include <sstream>
#include <utility>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/TreeMemory.h"

namespace zo::Tessera {

namespace {

constexpr int k_goOn = 1;

[[noreturn]] void refuse(const Element* where, const char* message) {
    throw ParseException(where, message, -1, -1, -1, -1);
}

}  // namespace

DomParser::DomParser()
    : m_parser(std::make_unique<CallbackParser>(this)), m_memory(std::make_unique<TreeMemory>()) {}

DomParser::~DomParser() = default;

std::istream& DomParser::parse(Dom& dom, std::istream& in) {
    m_dom = &dom;
    dom.setRoot(nullptr);
    m_current = nullptr;
    m_parser->parse(in);
    // The pending key stays, for a second call goes on with the text of the first. After an
    // exception all of it stays: callers look at where the reading stopped.
    m_current = nullptr;
    m_dom = nullptr;
    return in;
}

void DomParser::parse(Dom& dom, const std::string& text) {
    std::istringstream in(text);
    parse(dom, in);
}

void DomParser::parse(Dom& dom, const char* data, size_t length) {
    parse(dom, std::string(data, length));
}

/// Makes an element where the next value belongs. `make` takes nothing, a parent, or a parent and a
/// key, as the factories of `Element` do.
template <class Make>
Element* DomParser::place(const char* unexpected, const char* withoutKey, const Make& make) {
    const TreeMemory::Scope scope(*m_memory);
    if (!m_current) {
        if (!m_dom || m_dom->root()) {
            refuse(m_current, unexpected);
        }
        Element* const root = make();
        m_dom->setRoot(root);
        return root;
    }
    switch (m_current->type()) {
        case etObject: {
            if (!m_haveKey) {
                refuse(m_current, withoutKey);
            }
            Element* const member = make(m_current, m_pendingKey);
            m_haveKey = false;
            return member;
        }
        case etArray:
            return make(m_current);
        default:
            refuse(m_current, "Invalid parent value");
    }
}

int DomParser::cb_null() {
    place("Unexpected null value", "Unexpected null value without map key",
          [](const auto&... where) { return Element::createNull(where...); });
    return k_goOn;
}

int DomParser::cb_boolean(bool value) {
    place("Unexpected boolean value", "Unexpected boolean value without map key",
          [&](const auto&... where) { return Element::createBoolean(value, where...); });
    return k_goOn;
}

int DomParser::cb_number(const char* text, size_t length) {
    BasicNumber number;
    number.set(text, length);
    place("Unexpected number value", "Unexpected number value without map key",
          [&](const auto&... where) {
              return newInTree<TBasicElement<BasicNumber>>(std::move(number), where...);
          });
    return k_goOn;
}

int DomParser::cb_string(const char* text, size_t length) {
    std::string string(text, length);
    place("Unexpected string value", "Unexpected string value without map key",
          [&](const auto&... where) {
              return newInTree<TBasicElement<std::string>>(std::move(string), where...);
          });
    return k_goOn;
}

int DomParser::cb_start_map() {
    m_current = place("Unexpected map", "Unexpected object without map key",
                      [](const auto&... where) { return Element::createObject(where...); });
    return k_goOn;
}

int DomParser::cb_map_key(const char* text, size_t length) {
    if (!m_current) {
        refuse(m_current, "Unexpected key of map!");
    }
    if (m_current->type() != etObject) {
        refuse(m_current, "Expected current element to be an object!");
    }
    m_pendingKey.assign(text, length);
    m_haveKey = true;
    return k_goOn;
}

int DomParser::cb_end_map() {
    if (m_haveKey || !m_current || m_current->type() != etObject) {
        refuse(m_current, "Unexpected end of map!");
    }
    m_current = m_current->parent();
    return k_goOn;
}

int DomParser::cb_start_array() {
    m_current = place("Unexpected array", "Unexpected array without map key",
                      [](const auto&... where) { return Element::createArray(where...); });
    return k_goOn;
}

int DomParser::cb_end_array() {
    if (!m_current || m_current->type() != etArray) {
        refuse(m_current, "Unexpected end of array!");
    }
    m_current = m_current->parent();
    return k_goOn;
}

int DomParser::cb_error(const char* message) {
    refuse(m_current, message);
}

int DomParser::cb_integer(long long) {
    throw Exception("Unexpected integer callback", m_current);
}

int DomParser::cb_double(double) {
    throw Exception("Unexpected double callback", m_current);
}

}  // namespace zo::Tessera
