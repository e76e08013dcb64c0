#include "documents/TokenTracker.h"

namespace zo::Tessera {

namespace {

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isPunctuation(char c) {
    return std::string_view("{}[]:,").find(c) != std::string_view::npos;
}

bool beginsPlain(char c) {
    return c == '-' || (c >= '0' && c <= '9') || c == 't' || c == 'f' || c == 'n';
}

bool continuesPlain(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '+' ||
           c == '-' || c == '.';
}

}  // namespace

void TokenTracker::settle(std::string_view text) {
    m_position.advance(text);
    m_state = tsBetween;
    m_separators = 0;
    m_first = '\0';
    m_behindToken = false;
}

void TokenTracker::advance(std::string_view text) {
    for (const char c : text) {
        follow(c);
    }
}

void TokenTracker::follow(char c) {
    if (m_state == tsPlain && !continuesPlain(c)) {
        m_state = tsBetween;
    }
    if (isWithinToken()) {
        const bool wasSlash = m_state == tsSlash;
        const bool wasComment = isWithinComment();
        m_state = next(c);
        if (wasSlash && m_state == tsInvalid) {
            m_tokenStart = m_position;  // the slash alone might have begun a comment
        }
        ++m_length;
        m_behindToken = !wasComment;
    } else if (isBlank(c)) {
        m_behindToken = false;
    } else {
        begin(c);
    }
    m_position.advance(c);
}

void TokenTracker::begin(char c) {
    m_tokenStart = m_position;
    m_length = 1;
    m_behindToken = true;
    m_first = c;
    if (isSeparator(c)) {
        ++m_separators;
    }
    if (c == '"') {
        m_state = tsString;
    } else if (c == '/') {
        m_state = tsSlash;
    } else if (beginsPlain(c)) {
        m_state = tsPlain;
    } else if (!isPunctuation(c)) {
        m_state = tsInvalid;
    }
}

/// The state behind a further character of the token at hand.
TokenTracker::EState TokenTracker::next(char c) const {
    switch (m_state) {
        case tsString:
            return c == '\\' ? tsEscape : (c == '"' ? tsBetween : tsString);
        case tsEscape:
            return tsString;
        case tsSlash:
            return c == '/' ? tsLineComment : (c == '*' ? tsBlockComment : tsInvalid);
        case tsLineComment:
            return c == '\n' ? tsBetween : tsLineComment;
        case tsStar:
            if (c == '/') {
                return tsBetween;
            }
            [[fallthrough]];
        case tsBlockComment:
            return c == '*' ? tsStar : tsBlockComment;
        default:
            return m_state;
    }
}

}  // namespace zo::Tessera
