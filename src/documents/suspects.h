#ifndef ZO_TESSERA_SRC_DOCUMENTS_SUSPECTS_H
#define ZO_TESSERA_SRC_DOCUMENTS_SUSPECTS_H

#include <cstddef>
#include <string_view>

namespace zo::Tessera {

/// What the tokeniser accepts, and a reader of documents may not.
enum ESuspect {
    suNone,
    suOddBlank,  ///< a vertical tab or a form feed: a blank to the tokeniser
    suHalfPair,  ///< an escaped half of a surrogate pair, of which it makes another text
    suCutOff     ///< an escape that the end of the text cuts off, or the other half that may follow
};

struct Suspect {
    ESuspect kind;
    size_t position;  ///< for `suNone` the end of the text
};

/// The first suspect in `text` from `start` on, which must not be within an escape. Where escapes
/// mean nothing, in comments, there may be one, too. Linear in the distance.
Suspect findSuspect(std::string_view text, size_t start, bool withOddBlanks);

}  // namespace zo::Tessera

#endif
