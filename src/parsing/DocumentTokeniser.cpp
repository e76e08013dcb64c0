#include "parsing/DocumentTokeniser.h"

#include <new>

#include "parsing/CallbackParserPrivate.h"

namespace zo::Tessera {

DocumentTokeniser::DocumentTokeniser(CallbackParserListener& listener, bool allowComments)
    : m_parser(&listener) {
    m_parser.m_private->m_tracksSettled = true;
    yajl_config(m_parser.m_private->m_handle.get(), yajl_allow_comments, allowComments ? 1 : 0);
}

bool DocumentTokeniser::parse(std::string_view piece) {
    return m_parser.parse(piece.data(), piece.size()) == 0;
}

bool DocumentTokeniser::complete() {
    return yajl_complete_parse(m_parser.m_private->m_handle.get()) == yajl_status_ok;
}

size_t DocumentTokeniser::consumed() const {
    return yajl_get_bytes_consumed(m_parser.m_private->m_handle.get());
}

std::optional<size_t> DocumentTokeniser::settled() const {
    return m_parser.m_private->m_settled;
}

DocumentTokeniser::EError DocumentTokeniser::error() const {
    constexpr std::string_view lexical = "lexical";
    return errorText().compare(0, lexical.size(), lexical) == 0 ? teLexical : teSyntax;
}

std::string DocumentTokeniser::errorText() const {
    // Not the verbose form, which shows text of one piece alone.
    constexpr int verbose = 0;
    yajl_handle_t* const handle = m_parser.m_private->m_handle.get();
    const YajlErrorText text(yajl_get_error(handle, verbose, nullptr, 0),
                             YajlErrorTextDeleter{handle});
    if (!text) {
        throw std::bad_alloc();
    }
    std::string line(reinterpret_cast<const char*>(text.get()));
    line.erase(line.find_last_not_of('\n') + 1);
    return line;
}

}  // namespace zo::Tessera
