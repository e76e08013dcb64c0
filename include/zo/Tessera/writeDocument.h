#ifndef ZO_TESSERA_WRITEDOCUMENT_H
#define ZO_TESSERA_WRITEDOCUMENT_H

#include <cstddef>
#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Dom;
class Element;

/// How `writeDocument` lays a document out, and what it does with strings.
struct WriteOptions {
    /// The depth from which on lines are not indented any further: otherwise the size of a deeply
    /// nested document would grow with the square of its depth.
    static constexpr size_t k_deepestIndent = 256;

    /// Everything on one line, without blanks; `indent` and `shortArrayWidth` then have no say.
    bool compact = false;
    /// What each level of nesting puts before a line: any number of blanks and tabs. Empty breaks
    /// lines without indenting them. Any other character throws `zo::Tessera::Exception`.
    std::string indent = "    ";
    /// An array that holds no filled array or object stands on one line, such as `[1, 2, 3]`, if
    /// that takes at most so many bytes, brackets included and what follows it not.
    size_t shortArrayWidth = 0;
    /// Members in the order of their keys' bytes; otherwise in their own.
    bool sortKeys = false;
    /// Write each character beyond ASCII as `\uXXXX`, or as two of these; otherwise as UTF-8.
    bool escapeNonAscii = false;
    /// What is not UTF-8 in a string or a key becomes U+FFFD; otherwise it is refused. Beware: keys
    /// that differ in nothing else become equal, and a reader keeps one of their members.
    bool replaceInvalidUtf8 = false;
    /// A line break behind the document, as text files have.
    bool finalNewline = true;
    /// Whether the root object's member under the meta key is written; if not set, the document's
    /// `includeMeta` says. Has no meaning for an element.
    std::optional<bool> includeMeta;
};

/// \name Writing a whole document
/// Writes a document, or any element and what is below it, as valid JSON text, at any depth. A
/// number is written as `BasicNumber::as<std::string>` gives it: the text that it was read or set
/// with, to the last digit.
///
///     writeDocument(std::cout, document);
///
/// What has no JSON form throws `zo::Tessera::Exception`, whose text names the path of the element
/// from the root written, before a byte is written: a number whose text is no JSON number (a NaN or
/// an infinity among them), a string or a key that is not UTF-8. So does a document without a root.
/// Out of memory `std::bad_alloc` is thrown. Nothing of the tree is changed, its caches included.
/// Time and memory grow with the text written, and with `sortKeys` the time as sorting does.
/// @{

/// Returns `out`. A stream that fails throws `zo::Tessera::Exception`, and holds the beginning of
/// the text, or nothing of it if it was not good to begin with; what the stream itself throws, if
/// it was told to, passes. The stream is not flushed.
ZO_TESSERA_EXPORT std::ostream& writeDocument(std::ostream& out, const Dom& document,
                                              const WriteOptions& options = {});
ZO_TESSERA_EXPORT std::ostream& writeDocument(std::ostream& out, const Element& root,
                                              const WriteOptions& options = {});
/// The text itself.
ZO_TESSERA_EXPORT std::string writeDocument(const Dom& document, const WriteOptions& options = {});
ZO_TESSERA_EXPORT std::string writeDocument(const Element& root, const WriteOptions& options = {});

/// Replaces the contents of `file`, or makes it, such that whatever happens, a crash included, the
/// old contents or the new ones are there whole: the text goes into a new file in the same folder,
/// which is flushed to the disk and takes the place of `file` only then. Whatever the disk reports
/// throws `zo::Tessera::Exception` with the file's name and the reason; `file` is then as before,
/// or the new file in whole if only flushing its folder failed.
///
/// A symbolic link is followed. The permissions of an existing file are kept, but for set-user-id
/// and its like, and do not protect it from being replaced; its owner, its other attributes and its
/// hard links are not kept. What exists and is no regular file, such as a device, is refused. The
/// folder must be readable and writable. A crash may leave the new file there, under a name that
/// begins with ".tessera-".
/// @{
ZO_TESSERA_EXPORT void writeDocumentFile(const std::filesystem::path& file, const Dom& document,
                                         const WriteOptions& options = {});
ZO_TESSERA_EXPORT void writeDocumentFile(const std::filesystem::path& file, const Element& root,
                                         const WriteOptions& options = {});
/// @}
/// @}

}  // namespace zo::Tessera

#endif
