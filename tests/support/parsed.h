#ifndef ZO_TESSERA_TESTS_SUPPORT_PARSED_H
#define ZO_TESSERA_TESTS_SUPPORT_PARSED_H

#include <memory>
#include <string>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>
#include <zo/Tessera/Element.h>

/// The tree that a JSON text describes.
inline std::unique_ptr<zo::Tessera::Element> parsed(const std::string& json) {
    zo::Tessera::Dom dom;
    zo::Tessera::DomParser().parse(dom, json);
    return dom.takeRoot();
}

#endif
