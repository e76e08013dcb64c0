#ifndef ZO_TESSERA_READDOCUMENT_H
#define ZO_TESSERA_READDOCUMENT_H

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <string_view>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// What `readDocument` refuses beyond what is no JSON at all.
struct ReadOptions {
    static constexpr size_t k_anyDepth = ~size_t{0};

    /// How many containers may be open at once: 0 allows scalars alone, 1 containers of scalars. A
    /// guard for what your own program does with the tree; the library takes any depth.
    size_t greatestDepth = k_anyDepth;
    /// Otherwise the last value of a key counts, in the place of the first.
    bool refuseDuplicateKeys = false;
    /// Otherwise `//` up to the next LF (a CR alone does not end it) and `/* */` count as blanks.
    bool refuseComments = false;
    /// Refuse what is not UTF-8, overlong forms and surrogates included, anywhere in the text.
    /// Otherwise the bytes of strings and keys are kept as they are.
    bool checkUtf8 = false;
    /// Leave out a UTF-8 byte-order mark before the text, instead of refusing it.
    bool skipByteOrderMark = true;
    /// Refuse vertical tabs and form feeds between tokens, which the tokeniser takes for blanks.
    bool refuseOddBlanks = true;
};

/// \name Reading a whole document
/// Reads exactly one JSON document and returns it complete: every element knows its parent, its key
/// and its index, and numbers keep their text. Nothing may stand before or behind the document but
/// blanks and comments.
///
///     const Dom document = readDocument(R"({"a": [1.50]})");
///
/// Whatever is wrong throws `ParseException`, and no part of a tree escapes: malformed text; a text
/// that ends too early, within a token or a comment, or before it began; text behind the document;
/// an escaped half of a surrogate pair without the other, such as `"\ud800"`, which no text can
/// hold; what the options refuse; a file that cannot be opened, a file or stream that fails.
///
/// Its `line()` and `column()` say where: both count from 1, columns in bytes, a byte-order mark
/// included; CR LF, LF and CR each end one line. They name the first byte that cannot stand there,
/// the beginning of the token that may not, or the end of the text, and are -1 where a file or a
/// stream failed, and no more than `INT_MAX`. Its `message()` names the file, if there is one, and
/// the path of the element that was being read; with a position it begins with a blank, for
/// `what()` puts it right behind that:
///
///     Parse error at 3,9 in "a.json", element "list[2]": lexical error: invalid char in json text.
///
/// Out of memory `std::bad_alloc` is thrown. Time and memory grow with the text, at any depth.
/// @{

/// `text` is UTF-8 by custom, and need not be terminated. It is not referred to afterwards.
ZO_TESSERA_EXPORT Dom readDocument(std::string_view text, const ReadOptions& options = {});
/// Reads `in` to its end with `read`, in pieces of 64 KiB, and parses as it goes: malformed text is
/// refused before the rest is read. Works with `std::cin`, pipes and whatever delivers slowly. On
/// success only `eofbit` is set afterwards. What the stream throws because it was told to for
/// `badbit` passes; for the other two it does not throw here. After a refusal up to 64 KiB behind
/// what was refused are read.
ZO_TESSERA_EXPORT Dom readDocument(std::istream& in, const ReadOptions& options = {});
/// Reads a file, a pipe that has a name included.
ZO_TESSERA_EXPORT Dom readDocumentFile(const std::filesystem::path& file,
                                       const ReadOptions& options = {});
/// @}

}  // namespace zo::Tessera

#endif
