#include "documents/TextPosition.h"

#include <algorithm>

namespace zo::Tessera {

void TextPosition::advance(std::string_view text) {
    if (text.empty()) {
        return;
    }
    if (m_afterCr || text.find('\r') != std::string_view::npos) {
        for (const char c : text) {
            advance(c);
        }
        return;
    }
    // The common case, much faster.
    m_line += static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
    const size_t lineEnd = text.rfind('\n');
    m_column = lineEnd == std::string_view::npos ? m_column + text.size() : text.size() - lineEnd;
}

}  // namespace zo::Tessera
