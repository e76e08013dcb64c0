#ifndef ZO_TESSERA_SRC_DOCUMENTS_DOCUMENTREADER_H
#define ZO_TESSERA_SRC_DOCUMENTS_DOCUMENTREADER_H

#include <cstddef>
#include <string>
#include <string_view>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/readDocument.h>

#include "documents/DocumentBuilder.h"
#include "documents/TokenTracker.h"
#include "documents/suspects.h"
#include "parsing/DocumentTokeniser.h"

namespace zo::Tessera {

/// Reads one document, in pieces of any lengths: none of them has a say in what is read, or in what
/// an exception tells.
class DocumentReader {
public:
    /// `options` must outlive the reader. `source` is the file's name, or empty.
    DocumentReader(const ReadOptions& options, const std::string& source);

    /// Reads the next piece and returns how much of it was: not the beginning of a character or an
    /// escape that its end cuts off, which belongs to the next piece, unless this is the last.
    size_t read(std::string_view piece, bool isLast);
    /// Declares the end of the text.
    Dom finish();

    /// How much text the next piece should have at least. The tokeniser starts a token again
    /// whenever a piece ends within it: a long one would cost the square of its length.
    size_t amountAtOnce() const { return m_tracker.lengthSoFar(); }

private:
    size_t readValid(std::string_view text, bool isLast);
    size_t lengthWithinComment(std::string_view text) const;
    void examine(ESuspect kind, std::string_view character);
    void tokenise(std::string_view text);
    void follow(std::string_view text, size_t end);
    [[noreturn]] void refuseError() const;
    [[noreturn]] void refuseEnd() const;
    [[noreturn]] void refuseHere(const std::string& reason) const;
    [[noreturn]] void refuseToken(const std::string& reason) const;
    [[noreturn]] void refuse(const TextPosition& position, const std::string& path,
                             const std::string& reason) const;

    const ReadOptions& m_options;
    std::string m_source;
    DocumentBuilder m_builder;
    DocumentTokeniser m_tokeniser;
    TokenTracker m_tracker;
    bool m_begun = false;
};

}  // namespace zo::Tessera

#endif
