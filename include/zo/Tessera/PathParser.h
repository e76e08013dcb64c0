#ifndef ZO_TESSERA_PATHPARSER_H
#define ZO_TESSERA_PATHPARSER_H

#include <iosfwd>
#include <string>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// Receives the segments of a path text, in order and as soon as each is complete.
/// An exception that it throws passes out of the parser unchanged.
class ZO_TESSERA_EXPORT PathParserListener {
public:
    virtual ~PathParserListener();

    /// A key, without the backslashes of its escapes; never empty. True goes on, false ends the
    /// run: without `cbFinish` in the middle of a path, but with it after a key that is the last.
    virtual bool cbObjectProperty(const std::string& key) = 0;
    /// An index; `Path::k_noIndex` stands for "*". True goes on, false ends the run without
    /// `cbFinish`, also after the last segment.
    virtual bool cbArrayItem(unsigned long index) = 0;
    /// The text is at its end, and complete: not after an error there. Does nothing unless
    /// overridden.
    virtual void cbFinish();
    /// The text breaks the syntax. `message` is the whole message, `text` what has been read of the
    /// key or the index at hand, and `tokenStart` the place where that begins, or where the last
    /// one ended. `position` is the place of the character that shows the error: for "Unreadable
    /// index" the "]", for "Unexpexced EOF" the length of the text. Places count from 0.
    ///
    /// Unless overridden it throws `ParseException` with the message and the two places as columns
    /// of line 1. True drops the character and goes on, if the text does; false ends the run
    /// without `cbFinish`. After "Unreadable index" an index is reported in either case: one below
    /// `Path::k_noIndex`, and beyond the end of any array.
    virtual bool cbParseError(const std::string& message, const std::string& text,
                              unsigned long tokenStart, unsigned long position);
};

/// Reads a path text character by character (see `Path` for the syntax) and reports its segments
/// to a listener. Linear in the text, and in the key or index at hand for each error; keeps nothing
/// between two runs. Any exception ends the run: what follows is not reported, nor the end.
///
/// Beware: a byte 0xFF ends the text, unless a backslash stands before it. A backslash at the very
/// end adds a byte 0xFF to the key; in brackets it is an error. The index 2^64-1 is the same as
/// "*".
class ZO_TESSERA_EXPORT PathParser {
public:
    /// Where in the syntax a run is.
    enum EState : int {
        esInit = 0,        ///< between segments: at the start, or just after a "]"
        esObjectInit = 1,  ///< just after a ".": a key must start
        esObject = 2,      ///< inside a key
        esArrayInit = 3,   ///< just after a "[": an index must start
        esArray = 4,       ///< inside an index
        esError = 5        ///< after an error that the listener did not accept
    };

    /// `listener` must outlive the parser.
    explicit PathParser(PathParserListener& listener);

    /// Reads `in` to its end and returns it; one that is not good to begin with counts as empty.
    std::istream& parse(std::istream& in);
    /// The same for a text in memory, which needs no stream and must not change meanwhile.
    /// Allocates only for keys and indexes that are longer than 15 bytes, and for errors.
    void parse(const std::string& text);

private:
    PathParserListener& m_listener;
};

/// Writes the enumerator's name, such as "esObject", and ">>INVALID<<" for any other value.
/// @{
ZO_TESSERA_EXPORT std::ostream& operator<<(std::ostream& out, PathParser::EState state);
ZO_TESSERA_EXPORT std::wostream& operator<<(std::wostream& out, PathParser::EState state);
/// @}

}  // namespace zo::Tessera

#endif
