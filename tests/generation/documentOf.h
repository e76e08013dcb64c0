#ifndef ZO_TESSERA_TESTS_GENERATION_DOCUMENTOF_H
#define ZO_TESSERA_TESTS_GENERATION_DOCUMENTOF_H

#include <memory>
#include <utility>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>

inline zo::Tessera::Dom documentOf(std::unique_ptr<zo::Tessera::Element> root) {
    zo::Tessera::Dom dom;
    dom.setRoot(std::move(root));
    return dom;
}

#endif
