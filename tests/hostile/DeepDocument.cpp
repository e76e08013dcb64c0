#include "hostile/DeepDocument.h"

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

using namespace zo::Tessera;

namespace {

std::string key(Layout layout) {
    return layout == Layout::lineBreaks ? "\"k\": " : "\"k\":";
}

const Element* onlyChild(const Element& element) {
    if (element.size() != 1) {
        return nullptr;
    }
    if (element.type() == etArray) {
        return *element.getArrayValue().begin();
    }
    return element.type() == etObject ? element.getObjectValue().begin()->second : nullptr;
}

}  // namespace

bool DeepDocument::isArray(std::size_t level) const {
    return m_nesting == Nesting::arrays || (m_nesting == Nesting::inTurn && level % 2 == 0);
}

std::string DeepDocument::text(const std::string& value, Layout layout) const {
    return opening(layout) + lastKey(layout) + value + closing(layout);
}

std::string DeepDocument::opening(Layout layout) const {
    const std::string lineBreak = layout == Layout::lineBreaks ? "\n" : "";
    const std::string array = "[" + lineBreak;
    const std::string object = "{" + lineBreak;
    const std::string member = object + key(layout);
    std::string text;
    for (std::size_t level = 0; level + 1 < k_depth; ++level) {
        text += isArray(level) ? array : member;
    }
    return text + (isArray(k_depth - 1) ? array : object);
}

std::string DeepDocument::lastKey(Layout layout) const {
    return isArray(k_depth - 1) ? "" : key(layout);
}

std::string DeepDocument::closing(Layout layout) const {
    const std::string lineBreak = layout == Layout::lineBreaks ? "\n" : "";
    const std::string array = lineBreak + "]";
    const std::string object = lineBreak + "}";
    std::string text;
    for (std::size_t level = k_depth; level-- > 0;) {
        text += isArray(level) ? array : object;
    }
    return text + lineBreak;
}

std::string DeepDocument::schemaPath() const {
    std::string path = "meta.schema";
    for (std::size_t level = 0; level < k_depth; ++level) {
        path += isArray(level) ? ".items" : ".properties.k";
    }
    return path;
}

std::string DeepDocument::pathOfLevel(std::size_t level) const {
    std::string path;
    for (std::size_t i = 0; i < level; ++i) {
        if (isArray(i)) {
            path += "[0]";
        } else {
            path += path.empty() ? "k" : ".k";
        }
    }
    return path;
}

Element& deepestOf(Element& root) {
    const Element* deepest = &root;
    while (const Element* const child = onlyChild(*deepest)) {
        deepest = child;
    }
    return const_cast<Element&>(*deepest);
}

std::string textOf(const Element& root) {
    std::string text;
    std::string end;
    const Element* element = &root;
    while (element) {
        const bool isArray = element->type() == etArray;
        if (isArray) {
            text += '[';
            end += ']';
        } else if (element->type() == etObject) {
            text += element->size() == 0 ? "{"
                                         : "{\"" + element->getObjectValue().begin()->first + "\":";
            end += '}';
        } else {
            text += element->operator bool() ? "true" : "false";
        }
        element = onlyChild(*element);
    }
    return text + std::string(end.rbegin(), end.rend());
}
