#ifndef ZO_TESSERA_SRC_DOCUMENTS_TOKENTRACKER_H
#define ZO_TESSERA_SRC_DOCUMENTS_TOKENTRACKER_H

#include <cstddef>
#include <string_view>

#include "documents/TextPosition.h"

namespace zo::Tessera {

/// Follows a text along with the tokeniser, which tells of values and keys only: knows the place,
/// and since the last event which token the text stands in, where that began, and whether there was
/// a comma or a colon. It follows well-formed text up to where the tokeniser refuses it, and
/// decides nothing itself.
class TokenTracker {
public:
    /// Follows a text whose end is the end of an event's token.
    void settle(std::string_view text);
    /// Follows a text without an event.
    void advance(std::string_view text);

    const TextPosition& position() const { return m_position; }
    /// Where the last token, or the token at hand, began.
    const TextPosition& tokenStart() const { return m_tokenStart; }
    /// How long the token is that the text stands in; 0 between tokens.
    size_t lengthSoFar() const { return isWithinToken() ? m_length : 0; }

    bool isWithinString() const { return m_state == tsString || m_state == tsEscape; }
    bool isWithinBlockComment() const { return m_state == tsBlockComment || m_state == tsStar; }
    bool isWithinComment() const { return m_state == tsLineComment || isWithinBlockComment(); }
    bool isWithinToken() const { return m_state != tsBetween; }
    /// The token at hand begins as none can.
    bool isInvalid() const { return m_state == tsInvalid; }
    /// The last character since the event was a part of a token, a comment's but for its beginning
    /// not counted.
    bool isBehindToken() const { return m_behindToken; }
    /// It stands in what begins as a value or a key can.
    bool isWithinValue() const { return m_state == tsPlain || isWithinString(); }
    /// Of the last token, or the token at hand.
    char firstCharacter() const { return m_first; }
    /// Since the event there was a comma or a colon.
    bool isSeparated() const { return m_separators > 0; }
    /// The same, not counting the last token.
    bool isSeparatedBeforeToken() const { return m_separators > (isSeparator(m_first) ? 1 : 0); }

private:
    enum EState {
        tsBetween,
        tsString,
        tsEscape,  // behind a backslash
        tsPlain,   // in a number or a literal
        tsSlash,   // of a comment's beginning
        tsLineComment,
        tsBlockComment,
        tsStar,  // behind a star in a block comment
        tsInvalid
    };

    static bool isSeparator(char c) { return c == ',' || c == ':'; }

    void follow(char c);
    void begin(char c);
    EState next(char c) const;

    TextPosition m_position;
    TextPosition m_tokenStart;
    EState m_state = tsBetween;
    size_t m_length = 0;  // of the token at hand
    size_t m_separators = 0;
    char m_first = '\0';  // of the last token since the event
    bool m_behindToken = false;
};

}  // namespace zo::Tessera

#endif
