#ifndef ZO_TESSERA_PATHGENERATOR_H
#define ZO_TESSERA_PATHGENERATOR_H

#include <iosfwd>
#include <string>

#include <zo/StringRef.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// Writes a path text segment by segment, with a backslash before each character of a key that has
/// a meaning in paths.
///
/// After an exception a text is as before the segment, which can be tried again; a stream may hold
/// the segment's beginning.
///
/// Beware of what does not read back: an empty key, of which at most a "." is written; a byte 0xFF
/// in a key, which gets no backslash; an index in another number base than ten.
class ZO_TESSERA_EXPORT PathGenerator {
public:
    /// The kind of the segment written last.
    enum EState : int {
        esInit = 0,    ///< nothing written yet
        esObject = 1,  ///< a key
        esArray = 2,   ///< an index
        esError = 3    ///< never entered
    };

    /// Writes to `out`, which must outlive the generator.
    explicit PathGenerator(std::ostream& out);
    /// Appends to `text`, which must outlive the generator, at less cost than a stream has.
    explicit PathGenerator(std::string& text);

    /// Writes one key, after a "." unless it comes first. It may be a part of the text written to.
    /// @{
    void genObjectProperty(const std::string& name);
    void genObjectProperty(const zo::StringRef<char>& name);
    /// @}

    /// Writes one index in brackets, in the number base set on the stream (decimal in a string) but
    /// never grouped by its locale; `Path::k_noIndex` is written as "*".
    void genListItem(unsigned long index);

private:
    void put(const std::string& segment);

    std::ostream* m_stream = nullptr;  // one of the two is set
    std::string* m_text = nullptr;
    EState m_state = esInit;
};

/// Writes the enumerator's name, such as "esObject", and ">>INVALID<<" for any other value.
/// @{
ZO_TESSERA_EXPORT std::ostream& operator<<(std::ostream& out, PathGenerator::EState state);
ZO_TESSERA_EXPORT std::wostream& operator<<(std::wostream& out, PathGenerator::EState state);
/// @}

}  // namespace zo::Tessera

#endif
