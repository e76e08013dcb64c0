#include "documents/DocumentReader.h"

#include <algorithm>
#include <limits>

#include <zo/Tessera/Exception.h>

#include "documents/suspects.h"
#include "support/utf8Text.h"

namespace zo::Tessera {

namespace {

constexpr std::string_view k_byteOrderMark = "\xEF\xBB\xBF";

int bounded(size_t count) {
    constexpr size_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(count, most));
}

}  // namespace

DocumentReader::DocumentReader(const ReadOptions& options, const std::string& source)
    : m_options(options),
      m_source(source),
      m_builder(options),
      m_tokeniser(m_builder, !options.refuseComments) {}

size_t DocumentReader::read(std::string_view piece, bool isLast) {
    std::string_view text = piece;
    if (!m_begun && m_options.skipByteOrderMark &&
        text.substr(0, k_byteOrderMark.size()) == k_byteOrderMark) {
        m_tracker.settle(k_byteOrderMark);
        text.remove_prefix(k_byteOrderMark.size());
    }
    m_begun = true;
    const size_t before = piece.size() - text.size();
    const size_t invalid = m_options.checkUtf8 ? findInvalidUtf8(text) : std::string_view::npos;
    if (invalid == std::string_view::npos) {
        return before + readValid(text, isLast);
    }
    if (!isLast && isCutOffUtf8(text.substr(invalid))) {
        return before + readValid(text.substr(0, invalid), false);
    }
    readValid(text.substr(0, invalid), true);
    refuseHere("the text is not UTF-8");
}

Dom DocumentReader::finish() {
    // Ends a number or a line comment, and is an error within any other token.
    if (!m_tokeniser.parse("\n")) {
        if (m_builder.isComplete()) {
            refuseToken(DocumentBuilder::k_textBehind);
        }
        refuseEnd();
    }
    if (m_tokeniser.settled()) {
        m_tracker.settle(std::string_view());
    }
    // What is accepted behind the end of a document is the end of a comment.
    if (!m_tokeniser.complete() || m_tokeniser.parse("*/")) {
        refuseEnd();
    }
    Dom document;
    document.setRoot(m_builder.takeRoot());
    return document;
}

/// Reads what has no other fault than the tokeniser and suspects may show, and returns how much of
/// it was read: all but an escape that its end cuts off, unless it is the last.
size_t DocumentReader::readValid(std::string_view text, bool isLast) {
    size_t done = 0;
    while (done < text.size()) {
        const std::string_view rest = text.substr(done);
        const Suspect suspect =
            findSuspect(rest, lengthWithinComment(rest), m_options.refuseOddBlanks);
        tokenise(rest.substr(0, suspect.position));
        done += suspect.position;
        if (suspect.kind == suCutOff) {
            if (!isLast) {
                break;
            }
            tokenise(rest.substr(suspect.position));
            done = text.size();
        } else if (suspect.kind != suNone) {
            examine(suspect.kind, rest.substr(suspect.position, 1));
        }
    }
    return done;
}

/// How much of `text` belongs to the comment that it begins in, if it does.
size_t DocumentReader::lengthWithinComment(std::string_view text) const {
    size_t length = 0;
    for (TokenTracker comment = m_tracker; comment.isWithinComment() && length < text.size();
         ++length) {
        comment.advance(text.substr(length, 1));
    }
    return length;
}

/// Refuses a suspect that begins with `character`, unless it is in a comment.
void DocumentReader::examine(ESuspect kind, std::string_view character) {
    if (m_tracker.isWithinComment()) {
        return;
    }
    const bool isWithinString = m_tracker.isWithinString();
    if (kind == suOddBlank && !isWithinString) {
        refuseHere("a vertical tab or a form feed is no blank");
    }
    if (kind == suHalfPair && isWithinString) {
        refuseHere("half of a surrogate pair stands alone");
    }
    tokenise(character);  // which is an error in any case
}

void DocumentReader::tokenise(std::string_view text) {
    if (m_tokeniser.parse(text)) {
        follow(text, text.size());
        return;
    }
    follow(text, m_tokeniser.consumed());
    refuseError();
}

/// Follows the text that the tokeniser was given, up to `end`.
void DocumentReader::follow(std::string_view text, size_t end) {
    size_t begin = 0;
    if (const std::optional<size_t> settled = m_tokeniser.settled()) {
        begin = *settled;
        m_tracker.settle(text.substr(0, begin));
    }
    m_tracker.advance(text.substr(begin, end - begin));
}

void DocumentReader::refuseError() const {
    std::string reason = m_builder.refusal();
    if (m_builder.isComplete()) {
        reason = DocumentBuilder::k_textBehind;
    } else if (reason.empty()) {
        reason = m_tokeniser.errorText();
    }
    const bool isSyntax = m_tokeniser.error() == DocumentTokeniser::teSyntax;
    if (m_tracker.isInvalid() || (isSyntax && m_tracker.isBehindToken())) {
        refuseToken(reason);
    }
    refuseHere(reason);
}

void DocumentReader::refuseEnd() const {
    std::string reason = "unexpected end of text";
    if (m_tracker.isWithinBlockComment()) {
        reason += " within a comment";
    } else if (m_tracker.isWithinString()) {
        reason += " within a string";
    } else if (m_tracker.isWithinToken() && !m_tracker.isWithinComment()) {
        reason += " within a token";
    } else if (m_builder.isEmpty()) {
        reason += " before a document";
    }
    refuseHere(reason);
}

/// Refuses what stands here, or the token that it stands in, if that is misplaced itself.
void DocumentReader::refuseHere(const std::string& reason) const {
    if (m_tracker.isWithinValue()) {
        if (const char* const misplaced = m_builder.misplaced(m_tracker.firstCharacter(),
                                                              m_tracker.isSeparatedBeforeToken())) {
            refuseToken(misplaced);
        }
    }
    refuse(m_tracker.position(), m_builder.path(m_tracker.isSeparated()), reason);
}

void DocumentReader::refuseToken(const std::string& reason) const {
    refuse(m_tracker.tokenStart(), m_builder.path(m_tracker.isSeparatedBeforeToken()), reason);
}

void DocumentReader::refuse(const TextPosition& position, const std::string& path,
                            const std::string& reason) const {
    std::string message = " in ";
    if (!m_source.empty()) {
        message += '"' + m_source + "\", ";
    }
    message += "element \"" + path + "\": " + reason;
    throw ParseException(message, bounded(position.line()), bounded(position.column()), -1, -1);
}

}  // namespace zo::Tessera
