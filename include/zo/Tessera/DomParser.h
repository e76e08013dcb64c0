#ifndef ZO_TESSERA_DOMPARSER_H
#define ZO_TESSERA_DOMPARSER_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include <zo/Tessera/CallbackParser.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Dom;
class Element;
class TreeMemory;

/// Builds the tree of a document from JSON text. One parser reads one document: a second `parse`
/// goes on with the text of the first, into an emptied `Dom`.
///
/// The parser keeps up to 64 KiB of the tree's memory until it is destroyed itself.
///
/// A member whose key comes again replaces the earlier value in its place. A text that is cut off
/// raises nothing, and a number at its very end is not read (see `CallbackParser`); `readDocument`
/// refuses the one and reads the other.
class ZO_TESSERA_EXPORT DomParser : public CallbackParserListener {
public:
    DomParser();
    DomParser(const DomParser&) = delete;
    DomParser& operator=(const DomParser&) = delete;
    ~DomParser() override;

    /// Deletes `dom`'s root, then reads the text into it. Malformed text and a structure that does
    /// not fit throw `ParseException` with the path of the container being read; what was built so
    /// far stays in `dom`. Memory and time grow with the text, at any depth.
    /// @{
    std::istream& parse(Dom& dom, std::istream& in);
    void parse(Dom& dom, const std::string& text);
    void parse(Dom& dom, const char* data, size_t length);
    /// @}

    /// \name Events
    /// For the `CallbackParser` that this parser owns. Before and after a `parse` each value is
    /// refused with its "Unexpected ..." `ParseException`. After a `parse` that threw, the events
    /// still go to the container where it stopped: send none once that document is gone.
    /// @{
    int cb_null() override;
    int cb_boolean(bool value) override;
    int cb_number(const char* text, size_t length) override;
    int cb_string(const char* text, size_t length) override;
    int cb_start_map() override;
    int cb_map_key(const char* text, size_t length) override;
    int cb_end_map() override;
    int cb_start_array() override;
    int cb_end_array() override;
    /// Throws `ParseException` with the message.
    int cb_error(const char* message) override;
    /// Numbers come as text: throw `zo::Tessera::Exception` "Unexpected integer callback" and
    /// "Unexpected double callback".
    /// @{
    int cb_integer(long long value) override;
    int cb_double(double value) override;
    /// @}
    /// @}

private:
    template <class Make>
    Element* place(const char* unexpected, const char* withoutKey, const Make& make);

    std::unique_ptr<CallbackParser> m_parser;
    std::unique_ptr<TreeMemory> m_memory;
    Dom* m_dom = nullptr;          // not owned, set during `parse` only
    Element* m_current = nullptr;  // not owned: the open container, null at top level
    std::string m_pendingKey;
    bool m_haveKey = false;
};

}  // namespace zo::Tessera

#endif
