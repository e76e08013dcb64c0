#ifndef ZO_TESSERA_CALLBACKPARSER_H
#define ZO_TESSERA_CALLBACKPARSER_H

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// Receives the events of a JSON text. Each event answers non-zero to go on and zero to stop, which
/// the parser then reports as an error; an exception passes out of the parser's `parse`.
/// Texts are valid during the call only, and, but for `cb_error`'s message, not terminated.
class ZO_TESSERA_EXPORT CallbackParserListener {
public:
    virtual ~CallbackParserListener();

    virtual int cb_null() = 0;
    virtual int cb_boolean(bool value) = 0;
    virtual int cb_number(const char* text, size_t length) = 0;
    virtual int cb_string(const char* text, size_t length) = 0;
    virtual int cb_start_map() = 0;
    virtual int cb_map_key(const char* text, size_t length) = 0;
    virtual int cb_end_map() = 0;
    virtual int cb_start_array() = 0;
    virtual int cb_end_array() = 0;
    /// The text is malformed, or an event answered zero. `message` shows where, within the piece of
    /// text that was being parsed; a zero byte in that text ends it. Answering zero makes the
    /// parser throw it. After any other answer the parser is in error for good: each further piece
    /// comes here again, and the messages are kept until the parser is destroyed.
    virtual int cb_error(const char* message) = 0;
    /// Only when `use_number_callback` answers false, as `cb_double`.
    virtual int cb_integer(long long value) = 0;
    virtual int cb_double(double value) = 0;
    /// Whether numbers come as their text through `cb_number` (true unless overridden) or converted
    /// through `cb_integer` and `cb_double`. Asked when a parser is made, and by `setCallbacks`.
    virtual bool use_number_callback();
};

/// Turns JSON text into events for a listener. One parser reads one document, in as many pieces as
/// the text comes in; there is no reset. Comments are accepted, and strings are not checked for
/// UTF-8.
///
/// Beware: the end of the text is never declared. A number at the very end of the input stays
/// unread until a further character comes, and a truncated document raises nothing. For whole
/// documents there is `readDocument`.
class ZO_TESSERA_EXPORT CallbackParser {
public:
    /// `listener` is not owned and must outlive the parser. With null, the first event (or error)
    /// throws `zo::Tessera::Exception` "No listener attached to CallbackParser!".
    explicit CallbackParser(CallbackParserListener* listener);
    CallbackParser(const CallbackParser&) = delete;
    CallbackParser& operator=(const CallbackParser&) = delete;
    virtual ~CallbackParser();

    /// Chooses the callbacks anew, after the listener's `use_number_callback` changed its answer.
    /// May be called from within an event, and holds from the next one on.
    void setCallbacks();

    /// Reads what the stream has at hand, in pieces of at most 255 characters, and returns it. A
    /// stream that is not good yields no events. Each piece is parsed at once; but when 4 KiB have
    /// brought no event, pieces that are at hand are put together to ever larger ones until one
    /// comes, so that the time stays in proportion to the text. Beware: it stops when no character
    /// is at hand at once (`readsome`); `std::cin` hands over none while it is tied to stdio.
    std::istream& parse(std::istream& in);
    /// Parses the next piece of the document and returns 0. Malformed text goes to `cb_error`: its
    /// non-zero answer is returned, otherwise `zo::Tessera::Exception` is thrown with the parser's
    /// message. What the listener throws passes through. When memory runs out, `std::bad_alloc` is
    /// thrown, and if it was the tokeniser's, by each further call too.
    ///
    /// The time is in proportion to the text when it comes in one piece. In many, each one that
    /// ends within a string, a number or a comment has that read again from its beginning.
    /// With converted numbers (see `use_number_callback`), 2 GiB or more without an event throw
    /// `zo::Tessera::Exception` "Text too long for numbers to be converted!", and so does a piece
    /// of that length.
    /// @{
    int parse(const char* data, size_t length);
    int parse(const std::string& text);
    /// @}

    /// The tokeniser's status after the last piece: 0 when all was well so far.
    int state() const;

    /// \name What the tokeniser calls
    /// `context` is the `CallbackParser`.
    /// @{
    static int cb_null(void* context);
    static int cb_boolean(void* context, int value);
    static int cb_integer(void* context, long long value);
    static int cb_double(void* context, double value);
    static int cb_number(void* context, const char* text, size_t length);
    static int cb_string(void* context, const unsigned char* text, size_t length);
    static int cb_start_map(void* context);
    static int cb_map_key(void* context, const unsigned char* text, size_t length);
    static int cb_end_map(void* context);
    static int cb_start_array(void* context);
    static int cb_end_array(void* context);
    /// @}

private:
    friend class DocumentTokeniser;
    struct Private;

    CallbackParserListener& listener() const;
    int tokenise(const unsigned char* data, size_t length);
    template <class Event>
    static int tell(void* context, const Event& event);

    CallbackParserListener* m_listener;  // not owned, may be null
    std::unique_ptr<Private> m_private;
};

}  // namespace zo::Tessera

#endif
