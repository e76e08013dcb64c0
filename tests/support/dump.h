#ifndef ZO_TESSERA_TESTS_SUPPORT_DUMP_H
#define ZO_TESSERA_TESTS_SUPPORT_DUMP_H

#include <string>

#include <zo/Tessera/Element.h>

/// The whole state of a tree as text, one element a line, children indented by two blanks:
/// the kind, a scalar's value, then `key()`, `index()` (`-` for none) and whether `parent()` is the
/// container that holds it. For example
///
///     etObject key="" index=- parent=none
///       etNumber 1.50 key="price" index=- parent=right
///       etArray key="list" index=- parent=right
///         etNull key="[0]" index=0 parent=right
///
/// A member that the object holds under another name than its own `key()` says `held as "name"`.
std::string dump(const zo::Tessera::Element& root);

#endif
