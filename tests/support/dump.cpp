#include "support/dump.h"

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

std::string scalarText(const Element& element) {
    switch (element.type()) {
        case etBoolean:
            return element.getBooleanValue().value() ? " true" : " false";
        case etNumber:
            return " " + element.getNumberValue().value().toString();
        case etString:
            return " \"" + element.getStringValue().value() + "\"";
        default:
            return "";
    }
}

std::string parentText(const Element& element, const Element* holder) {
    if (!element.parent()) {
        return "none";
    }
    return element.parent() == holder ? "right" : "WRONG";
}

void dumpInto(std::string& out, const Element& element, const Element* holder,
              const std::string* heldAs, size_t depth) {
    out.append(2 * depth, ' ');
    out += element.typeName() + scalarText(element);
    out += " key=\"" + element.key() + "\" index=";
    out += element.index() == Path::k_noIndex ? "-" : std::to_string(element.index());
    out += " parent=" + parentText(element, holder);
    if (heldAs && *heldAs != element.key()) {
        out += " held as \"" + *heldAs + "\"";
    }
    out += "\n";
    if (element.type() == etArray) {
        for (const Element* child : element.getArrayValue()) {
            dumpInto(out, *child, &element, nullptr, depth + 1);
        }
    } else if (element.type() == etObject) {
        for (const auto& [key, child] : element.getObjectValue()) {
            dumpInto(out, *child, &element, &key, depth + 1);
        }
    }
}

}  // namespace

std::string dump(const Element& root) {
    std::string out;
    dumpInto(out, root, nullptr, nullptr, 0);
    return out;
}
