// Loaded at run time by the tests, and built with hidden symbols: it shares with them only what the
// library exports.

#include "shared_library/exceptions.h"

using namespace zo::Tessera;

namespace {

void parse(CallbackParserListener& listener, const std::string& text) {
    CallbackParser(&listener).parse(text);
}

std::string kindOf(const Element& element) {
    if (dynamic_cast<const Object*>(&element) != nullptr) {
        return "object";
    }
    if (dynamic_cast<const Array*>(&element) != nullptr) {
        return "array";
    }
    if (dynamic_cast<const TBasicElement<bool>*>(&element) != nullptr) {
        return "boolean";
    }
    if (dynamic_cast<const TBasicElement<BasicNumber>*>(&element) != nullptr) {
        return "number";
    }
    if (dynamic_cast<const TBasicElement<std::string>*>(&element) != nullptr) {
        return "string";
    }
    return dynamic_cast<const Null*>(&element) != nullptr ? "null" : "unknown";
}

}  // namespace

extern "C" __attribute__((visibility("default"))) const EdgePlugin* edgePlugin() {
    static const EdgePlugin plugin = {edgeExceptions(), &parse, &kindOf,
                                      [] { return array().release(); }};
    return &plugin;
}
