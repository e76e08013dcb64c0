#ifndef ZO_TESSERA_FUZZ_PATHMODEL_H
#define ZO_TESSERA_FUZZ_PATHMODEL_H

#include <cstddef>
#include <string>

#include <zo/Tessera.h>

#include "PathReader.h"

/// \file
/// What the operations that take a path must give, worked out by walks over what `PathReader`
/// tells.

namespace pathModel {

using zo::Tessera::Element;
using zo::Tessera::Path;

inline std::string segmentText(const Event& event) {
    if (event.kind == Event::evItem) {
        const bool star = event.index == Path::k_noIndex;
        return "[" + (star ? "*" : std::to_string(event.index)) + "]";
    }
    std::string text;
    for (const char c : event.text) {
        text += std::string(".[]*\\").find(c) == std::string::npos ? "" : "\\";
        text += c;
    }
    return text;
}

inline void append(std::string& path, const Event& event) {
    path += event.kind == Event::evKey && !path.empty() ? "." : "";
    path += segmentText(event);
}

inline bool isSegment(const Event& event) {
    return event.kind == Event::evKey || event.kind == Event::evItem;
}

/// What a call returns, or what it throws.
struct Outcome {
    const Element* element = nullptr;
    std::string text{};    // of a path
    std::string thrown{};  // class, message, places
};

inline Outcome thrown(const std::string& what) {
    return {nullptr, "", what};
}

inline Outcome syntaxError(const Event& event) {
    return thrown("ParseException 1," + std::to_string(event.index) + "-1," +
                  std::to_string(event.position) + " " + event.text);
}

inline Outcome structureError(const std::string& message) {
    return thrown("ParseException -1,-1--1,-1 " + message);
}

inline Outcome notFound(const std::string& path, const Element& element, const Event& event) {
    const std::string key =
        event.kind == Event::evKey ? event.text : "[" + std::to_string(event.index) + "]";
    return thrown("Path \"" + path + "\" not found! Key \"" + key + "\". at \"" +
                  element.path(nullptr) + "\"");
}

/// The child that a segment names; null when there is none.
inline Element* childOf(Element& element, const Event& event) {
    if (event.kind == Event::evKey && element.type() == zo::Tessera::etObject) {
        for (const auto& [key, member] : element.getObjectValue()) {
            if (key == event.text) {
                return member;
            }
        }
    }
    if (event.kind == Event::evItem && element.type() == zo::Tessera::etArray) {
        unsigned long place = 0;
        for (Element* const item : element.getArrayValue()) {
            if (place++ == event.index) {
                return item;
            }
        }
    }
    return nullptr;
}

/// What looking up must give.
inline Outcome lookedUp(const std::string& path, Element& start) {
    Element* current = &start;
    for (const Event& event : readPath(path)) {
        if (event.kind == Event::evError) {
            return syntaxError(event);
        }
        if (event.kind == Event::evItem && event.index == Path::k_noIndex) {
            return structureError("Index must be set!");
        }
        if (isSegment(event)) {
            Element* const child = childOf(*current, event);
            if (!child) {
                return notFound(path, *current, event);
            }
            current = child;
        }
    }
    return {current};
}

/// Puts `child` where `segment` says, which the container lacks.
inline Element* added(Element& container, const Event& segment, Element* child) {
    if (segment.kind == Event::evItem) {
        container.getArrayValue().push_back(child);
    } else {
        container.getObjectValue().insert(segment.text, child);
    }
    return child;
}

/// What creating must give, and what it must leave in the tree.
inline Outcome created(const std::string& path, Element& start, const Element& value) {
    Element* current = &start;
    const Event* pending = nullptr;
    const Events events = readPath(path);
    for (const Event& event : events) {
        if (event.kind == Event::evError) {
            return syntaxError(event);
        }
        if (pending) {
            const zo::Tessera::EType kind =
                pending->kind == Event::evKey ? zo::Tessera::etObject : zo::Tessera::etArray;
            Element* const child =
                event.kind == Event::evFinish ? value.clone() : Element::create(kind);
            current = added(*current, *pending, child);
            pending = nullptr;
        }
        if (!isSegment(event)) {
            continue;
        }
        if (Element* const child = childOf(*current, event)) {
            current = child;
        } else if (event.kind == Event::evKey ? current->type() == zo::Tessera::etObject
                                              : current->type() == zo::Tessera::etArray &&
                                                    event.index == Path::k_noIndex) {
            pending = &event;
        } else {
            return notFound(path, *current, event);
        }
    }
    return {current};
}

inline Outcome toSchema(const std::string& path) {
    std::string text = "meta.schema";
    for (const Event& event : readPath(path)) {
        if (event.kind == Event::evError) {
            return syntaxError(event);
        }
        if (event.kind == Event::evKey) {
            text += ".properties";
            append(text, event);
        } else if (event.kind == Event::evItem) {
            text += ".items";
        }
    }
    return {nullptr, text};
}

inline Outcome fromSchema(const std::string& path) {
    std::string text;
    size_t place = 0;
    bool keyFollows = false;
    for (const Event& event : readPath(path)) {
        if (event.kind == Event::evError) {
            return syntaxError(event);
        }
        if (event.kind == Event::evItem) {
            return structureError("Schema path may not contain arrays!");
        }
        if (event.kind == Event::evFinish) {
            break;
        }
        if (place < 2) {
            if (event.text != (place == 0 ? "meta" : "schema")) {
                return structureError("Schema path must begin with meta.schema!");
            }
            ++place;
        } else if (keyFollows) {
            append(text, event);
            keyFollows = false;
        } else if (event.text == "properties") {
            keyFollows = true;
        } else if (event.text == "items") {
            text += "[*]";
        } else {
            return structureError("\"properties\" or \"items\" expeced!");
        }
    }
    return {nullptr, text};
}

}  // namespace pathModel

#endif
