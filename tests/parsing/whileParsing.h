#ifndef ZO_TESSERA_TESTS_PARSING_WHILEPARSING_H
#define ZO_TESSERA_TESTS_PARSING_WHILEPARSING_H

#include <istream>
#include <string>
#include <vector>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>

#include "parsing/PieceBuffer.h"

/// Parses `text` into `dom` and runs `action` when all of it is read while `parse` still goes on:
/// the only moment at which a caller of the events meets an open container.
template <class Action>
void whileParsing(zo::Tessera::DomParser& parser, zo::Tessera::Dom& dom, const std::string& text,
                  const Action& action) {
    PieceBuffer buffer(text.empty() ? std::vector<std::string>{} : std::vector<std::string>{text});
    buffer.afterAll = action;
    std::istream in(&buffer);
    // A stream keeps its buffer's exceptions to itself unless told so.
    in.exceptions(std::ios_base::badbit);
    parser.parse(dom, in);
}

#endif
