#ifndef ZO_TESSERA_TESTS_FAILURES_RICHTREE_H
#define ZO_TESSERA_TESTS_FAILURES_RICHTREE_H

#include <memory>

#include <zo/Tessera/Element.h>

/// A tree of all kinds, with keys, texts and numbers that each need memory of their own.
std::unique_ptr<zo::Tessera::Element> richTree();

/// Checks that the tree can be walked, copied, compared and written, with every parent right.
void expectWhole(const zo::Tessera::Element& root);

#endif
