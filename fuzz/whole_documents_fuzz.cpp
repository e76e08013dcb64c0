// Reads any bytes as a whole document, holds that against the stream operator and against other
// options and pieces, and writes what was read and reads it again.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include <zo/Tessera.h>

#include "Input.h"
#include "check.h"

using namespace zo::Tessera;

namespace {

constexpr size_t k_pieceLength = 65536;  // in which a stream is read

/// A document, or what was thrown instead.
struct Reading {
    std::optional<Dom> m_document;
    std::optional<ParseException> m_refusal;
};

template <class Read>
Reading attempt(const Read& read) {
    Reading reading;
    try {
        reading.m_document.emplace(read());
    } catch (const ParseException& refusal) {
        reading.m_refusal.emplace(refusal);
    }
    return reading;
}

Reading readText(std::string_view text, const ReadOptions& options = {}) {
    return attempt([&] { return readDocument(text, options); });
}

Reading readStream(const std::string& text) {
    return attempt([&] {
        std::istringstream in(text);
        return readDocument(in);
    });
}

std::string encoded(const Dom& document) {
    return Generator(nullptr).encode(document);
}

void checkSameDocument(const Reading& left, const Reading& right, const char* what) {
    check(left.m_document.has_value() == right.m_document.has_value(), what);
    if (left.m_document) {
        checkSame(encoded(*left.m_document), encoded(*right.m_document), what);
    }
}

void checkPlaces(const Dom& document) {
    const bool ended = visit(*document.root(), [](const Element& element, const Path& path) {
        checkSame(element.path(nullptr), path, "the place that an element knows is its own");
        return evGoOn;
    });
    check(ended, "a walk that nobody stops comes to its end");
}

void checkPosition(const ParseException& refusal, std::string_view text) {
    check(refusal.line() >= 1 && refusal.column() >= 1, "a position counts from 1");
    check(static_cast<size_t>(refusal.line()) <= text.size() + 1, "the line is in the text");
    check(static_cast<size_t>(refusal.column()) <= text.size() + 1, "the column is in the text");
}

/// What the stream operator accepts too it reads alike.
void checkAgainstStreamOperator(const Reading& whole, const std::string& text) {
    if (!whole.m_document) {
        return;
    }
    std::istringstream in(text);
    Dom document;
    try {
        in >> document;
    } catch (const ParseException&) {
        check(text.compare(0, 3, "\xEF\xBB\xBF") == 0,
              "only a byte-order mark makes the stream operator refuse what is a document");
        return;
    }
    if (!document.root()) {
        check(whole.m_document->root()->type() == etNumber,
              "only a number is left unread at the end of a stream");
        return;
    }
    checkSame(encoded(*whole.m_document), encoded(document), "both readers read alike");
}

/// The same behind so many blanks that the boundary of two pieces falls into the text.
void checkAcrossPieces(const Reading& whole, const std::string& text, size_t place) {
    if (text.compare(0, 3, "\xEF\xBB\xBF") == 0) {
        return;
    }
    const size_t blanks = k_pieceLength - place % (text.size() + 1);
    const Reading shifted = readStream(std::string(blanks, ' ') + text);
    checkSameDocument(whole, shifted, "pieces have no say in a document");
    if (whole.m_refusal) {
        const ParseException& left = *whole.m_refusal;
        const ParseException& right = *shifted.m_refusal;
        checkSame(left.message(), right.message(), "pieces have no say in a message");
        check(left.line() == right.line(), "pieces have no say in a line");
        const int shift = left.line() == 1 ? static_cast<int>(blanks) : 0;
        check(left.column() + shift == right.column(), "pieces have no say in a column");
    }
}

ReadOptions readOptions(size_t bits) {
    ReadOptions options;
    options.refuseDuplicateKeys = (bits & 1) != 0;
    options.refuseComments = (bits & 2) != 0;
    options.checkUtf8 = (bits & 4) != 0;
    options.skipByteOrderMark = (bits & 8) == 0;
    options.refuseOddBlanks = (bits & 16) == 0;
    options.greatestDepth = (bits & 32) != 0 ? bits >> 6 : ReadOptions::k_anyDepth;
    return options;
}

/// Options that refuse more leave the rest as it was, and those that refuse less read the same.
void checkOptions(const Reading& whole, std::string_view text, size_t bits) {
    const Reading other = readText(text, readOptions(bits));
    if (whole.m_document && other.m_document) {
        checkSameDocument(whole, other, "options have no say in a document that is read");
    } else if (other.m_document) {
        check((bits & 16) != 0, "only blanks may be accepted beyond the defaults");
    } else {
        checkPosition(*other.m_refusal, text);
        check(whole.m_refusal || (bits & 47) != 0, "a refusal has its reason in the options");
    }
}

WriteOptions writeOptions(size_t bits) {
    WriteOptions options;
    options.compact = (bits & 1) != 0;
    options.sortKeys = (bits & 2) != 0;
    options.escapeNonAscii = (bits & 4) != 0;
    options.replaceInvalidUtf8 = (bits & 8) != 0;
    options.finalNewline = (bits & 16) != 0;
    options.indent = (bits & 32) != 0 ? "\t" : "  ";
    options.shortArrayWidth = bits >> 6;
    return options;
}

/// What is written is strict JSON, is the same document, and is written alike when it is read
/// again.
void checkWriting(const Dom& document, std::string_view text, size_t bits) {
    const WriteOptions options = writeOptions(bits);
    std::string written;
    try {
        written = writeDocument(document, options);
    } catch (const Exception&) {
        ReadOptions strict;
        strict.checkUtf8 = true;
        check(!options.replaceInvalidUtf8 && readText(text, strict).m_refusal,
              "only what is not UTF-8 is refused in a document that was read");
        return;
    }
    ReadOptions strict;
    strict.refuseComments = true;
    strict.checkUtf8 = true;
    const Reading again = readText(written, strict);
    check(again.m_document.has_value(), "what is written is valid JSON");
    if (!options.sortKeys && !options.replaceInvalidUtf8) {
        checkSame(encoded(document), encoded(*again.m_document), "what is written is the document");
    }
    if (!options.replaceInvalidUtf8) {
        // Keys that were replaced may have become one.
        checkSame(written, writeDocument(*again.m_document, options), "writing is repeatable");
    }
    if (options.escapeNonAscii) {
        for (const char c : written) {
            check(static_cast<unsigned char>(c) < 0x80, "what is escaped is ASCII");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Input input(data, size);
    const std::string text(input.m_text);
    const Reading whole = readText(text);
    if (whole.m_document) {
        checkPlaces(*whole.m_document);
        checkWriting(*whole.m_document, text, input.scripted(0));
    } else {
        checkPosition(*whole.m_refusal, text);
    }
    const Reading streamed = readStream(text);
    checkSameDocument(whole, streamed, "a stream is read as a text is");
    if (whole.m_refusal) {
        checkSame(whole.m_refusal->what(), streamed.m_refusal->what(),
                  "a stream is refused as a text is");
    }
    checkAgainstStreamOperator(whole, text);
    checkAcrossPieces(whole, text, input.scripted(1));
    checkOptions(whole, text, input.scripted(2));
    return 0;
}
