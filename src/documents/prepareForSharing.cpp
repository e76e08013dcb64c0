// The member of Element that makes a tree ready for reading by many threads.

#include <string>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "containers/Children.h"

namespace zo::Tessera {

namespace {

void deriveForms(const BasicNumber& number) {
    try {
        // First, for a number without a text gets its text from the binary form.
        number.type();
    } catch (const ValueOutOfRange<std::string, std::string>&) {
        // Thrown once only: the number has its binary form now.
    }
    number.toString();
}

void prepare(const Element& element, std::vector<Children>& open) {
    switch (element.type()) {
        case etNumber:
            deriveForms(element);
            break;
        case etObject:
            open.emplace_back(element.getObjectValue());
            break;
        case etArray:
            open.emplace_back(element.getArrayValue());
            break;
        default:
            break;
    }
}

}  // namespace

void Element::prepareForSharing() const {
    std::vector<Children> open;  // the containers whose children are at hand, outermost first
    prepare(*this, open);
    while (!open.empty()) {
        if (open.back().atEnd()) {
            open.pop_back();
            continue;
        }
        const Element& child = open.back().element();
        open.back().advance();
        prepare(child, open);
    }
}

}  // namespace zo::Tessera
