#ifndef ZO_TESSERA_SRC_PARSING_DOCUMENTTOKENISER_H
#define ZO_TESSERA_SRC_PARSING_DOCUMENTTOKENISER_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <zo/Tessera/CallbackParser.h>

namespace zo::Tessera {

/// A `CallbackParser` for one document whose end is declared, and that says how far it has come.
/// The listener has to accept errors: they are answered here. After one, nothing can be parsed.
class DocumentTokeniser {
public:
    enum EError {
        teLexical,  ///< a byte that no token can hold where it stands
        teSyntax    ///< a token that may not stand there, or an event that the listener refused
    };

    DocumentTokeniser(CallbackParserListener& listener, bool allowComments);

    /// Parses the next piece; false is an error. Throws what the listener does, and
    /// `std::bad_alloc`.
    bool parse(std::string_view piece);
    /// Declares the end; false if the document is not complete.
    bool complete();

    /// How much of the piece at hand is consumed: in an error the offending token, or what comes
    /// before the offending byte, or up to and with it.
    size_t consumed() const;
    /// How much of the piece at hand was consumed at the last event that was accepted, if any was.
    std::optional<size_t> settled() const;

    EError error() const;
    /// For example "lexical error: invalid char in json text."
    std::string errorText() const;

private:
    CallbackParser m_parser;
};

}  // namespace zo::Tessera

#endif
