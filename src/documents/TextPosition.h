#ifndef ZO_TESSERA_SRC_DOCUMENTS_TEXTPOSITION_H
#define ZO_TESSERA_SRC_DOCUMENTS_TEXTPOSITION_H

#include <cstddef>
#include <string_view>

namespace zo::Tessera {

/// A place in a text that comes in pieces. Both numbers count from 1; CR LF, LF and CR end one line
/// each.
class TextPosition {
public:
    size_t line() const { return m_line; }
    /// In bytes.
    size_t column() const { return m_column; }

    /// Moves on behind a character.
    void advance(char c) {
        const bool endsLine = c == '\r' || (c == '\n' && !m_afterCr);
        m_line += endsLine ? 1 : 0;
        m_column = c == '\r' || c == '\n' ? 1 : m_column + 1;
        m_afterCr = c == '\r';
    }

    /// Moves on behind a text.
    void advance(std::string_view text);

private:
    size_t m_line = 1;
    size_t m_column = 1;
    bool m_afterCr = false;
};

}  // namespace zo::Tessera

#endif
