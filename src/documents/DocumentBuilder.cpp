#include "documents/DocumentBuilder.h"

#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/PathGenerator.h>
#include <zo/Tessera/TBasicElement.h>

namespace zo::Tessera {

namespace {

constexpr int k_goOn = 1;
constexpr int k_stop = 0;

}  // namespace

DocumentBuilder::DocumentBuilder(const ReadOptions& options) : m_options(options) {}

int DocumentBuilder::cb_null() {
    place<Null>();
    return k_goOn;
}

int DocumentBuilder::cb_boolean(bool value) {
    place<TBasicElement<bool>>(value);
    return k_goOn;
}

int DocumentBuilder::cb_number(const char* text, size_t length) {
    BasicNumber number;
    number.set(text, length);
    place<TBasicElement<BasicNumber>>(std::move(number));
    return k_goOn;
}

int DocumentBuilder::cb_string(const char* text, size_t length) {
    place<TBasicElement<std::string>>(std::string(text, length));
    return k_goOn;
}

int DocumentBuilder::cb_start_map() {
    return open<Object>();
}

int DocumentBuilder::cb_map_key(const char* text, size_t length) {
    m_key.assign(text, length);
    m_haveKey = true;
    if (m_options.refuseDuplicateKeys && m_container->getObjectValue().contains(m_key)) {
        return refuse("the object has this key already");
    }
    return k_goOn;
}

int DocumentBuilder::cb_end_map() {
    return close();
}

int DocumentBuilder::cb_start_array() {
    return open<Array>();
}

int DocumentBuilder::cb_end_array() {
    return close();
}

int DocumentBuilder::cb_error(const char*) {
    // Accepted: the tokeniser is asked what it was.
    return k_goOn;
}

int DocumentBuilder::cb_integer(long long) {
    return k_stop;
}

int DocumentBuilder::cb_double(double) {
    return k_stop;
}

std::string DocumentBuilder::path(bool isSeparated) const {
    if (!m_container) {
        return std::string();
    }
    std::string text = m_container->path(nullptr);
    if (m_haveKey) {
        text += text.empty() ? "" : ".";
        PathGenerator(text).genObjectProperty(m_key);
    } else if (m_container->type() == etArray && (isSeparated || m_container->size() == 0)) {
        PathGenerator(text).genListItem(m_container->size());
    }
    return text;
}

const char* DocumentBuilder::misplaced(char first, bool isSeparated) const {
    if (!m_container) {
        return isComplete() ? k_textBehind : nullptr;
    }
    if (m_haveKey) {
        return isSeparated ? nullptr
                           : "parse error: object key and value must be separated by a colon (':')";
    }
    const bool mayFollow = isSeparated || m_container->size() == 0;
    if (m_container->type() == etArray) {
        return mayFollow ? nullptr : "parse error: after array element, I expect ',' or ']'";
    }
    if (!mayFollow) {
        return "parse error: after key and value, inside map, I expect ',' or '}'";
    }
    return first == '"' ? nullptr : "parse error: invalid object key (must be a string)";
}

std::unique_ptr<Element> DocumentBuilder::takeRoot() {
    return std::move(m_root);
}

template <class T, class... Value>
Element& DocumentBuilder::place(Value&&... value) {
    const TreeMemory::Scope scope(m_memory);
    std::unique_ptr<Element> element(newInTree<T>(std::forward<Value>(value)...));
    Element& placed = *element;
    if (!m_container) {
        m_root = std::move(element);
        return placed;
    }
    if (m_haveKey) {
        Object& object = m_container->getObjectValue();
        const bool isNew = object.insert(m_key, &placed).second;
        static_cast<void>(element.release());
        if (!isNew) {
            object.replace(m_key, &placed);  // which attaches it
        }
        m_haveKey = false;
    } else {
        m_container->getArrayValue().push_back(&placed);
        static_cast<void>(element.release());
    }
    return placed;
}

template <class Container>
int DocumentBuilder::open() {
    if (m_depth == m_options.greatestDepth) {
        return refuse("nested deeper than " + std::to_string(m_depth) + " levels");
    }
    m_container = &place<Container>();
    ++m_depth;
    return k_goOn;
}

int DocumentBuilder::close() {
    m_container = m_container->parent();
    --m_depth;
    return k_goOn;
}

int DocumentBuilder::refuse(const std::string& reason) {
    m_refusal = reason;
    return k_stop;
}

}  // namespace zo::Tessera
