#ifndef ZO_TESSERA_GENERATOR_H
#define ZO_TESSERA_GENERATOR_H

#include <iosfwd>
#include <memory>
#include <string>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Array;
class BasicNumber;
class Dom;
class Element;
class Object;

/// Writes elements and documents as JSON text of any depth. Numbers are written as their text.
/// Strings are not checked for UTF-8.
///
/// One generator writes one top-level value: what comes after it is refused. The text gathers in
/// the generator until `flush` moves it to the stream.
///
/// The `gen_` and `print` operations return the status of the last event: 0 when it was accepted,
/// or when there was none; otherwise the event is lost (a value where a key must come, a second
/// top-level value, a NaN or an infinity). No status throws. Beware: printing goes on after a
/// refused event. Where a key must come, the members of a refused object go to the enclosing one,
/// and its end closes that one.
///
/// When memory runs out, `std::bad_alloc` is thrown. A single event has then not happened, or the
/// text gathered since the last `flush` is lost and the generator is as new, but for `setIndent`.
/// Of a whole value its first events may have happened, and their text is kept or lost in the same
/// way.
class ZO_TESSERA_EXPORT Generator {
public:
    /// `out` may be null; otherwise it is not owned and must outlive the last `flush`. Line breaks
    /// are on.
    explicit Generator(std::ostream* out);
    Generator(const Generator&) = delete;
    Generator& operator=(const Generator&) = delete;
    /// Flushes. Pending text and no stream throw as `flush` does, except while another exception
    /// is on its way: `flush` first, or write with `encode`, which leaves nothing pending.
    virtual ~Generator() noexcept(false);  // NOLINT(bugprone-exception-escape)

    /// Line breaks are on after any text and off after an empty one. Beware: the text itself is not
    /// used, and nothing is ever indented.
    void setIndent(const std::string& indent);

    /// Moves the gathered text to the stream. Without a stream, text throws
    /// `zo::Tessera::Exception` "Generator: output stream not set!" and is kept.
    void flush();

    /// \name Single events
    /// A container is opened and closed by two events; in an object each value comes after a
    /// string, which is its key. A close is not checked against what was opened, and one too many
    /// is refused.
    /// @{
    int gen_null();
    int gen_bool(bool value);
    int gen_integer(long value);
    int gen_double(double value);
    int gen_number(const BasicNumber& number);
    int gen_string(const std::string& text);
    int printString(const std::string& text);
    int gen_object_open();
    int gen_object_close();
    int gen_array_open();
    int gen_array_close();
    /// @}

    /// \name Whole values
    /// Emit a value and everything below it. A document leaves out the root object's member under
    /// its meta key unless `Dom::includeMeta`; one without a root throws `zo::Tessera::Exception`
    /// "Generator: document has no root!".
    /// @{
    int print(const Element& element);
    int print(const Dom& dom);
    int printObject(const Object& object);
    int printArray(const Array& array);
    /// @}

    /// Prints to `out`, which stays the generator's stream, flushes, and returns `out`.
    /// @{
    std::ostream& encode(std::ostream& out, const Dom& dom);
    std::ostream& encode(std::ostream& out, const Element& element);
    /// @}
    /// Prints over the beginning of `out`. Beware: where `out` was longer than the JSON, its tail
    /// stays; clear it before, or use the form that returns a string. The generator has no stream
    /// afterwards.
    /// @{
    void encode(std::string& out, const Dom& dom);
    void encode(std::string& out, const Element& element);
    /// @}
    /// The JSON text. The generator has no stream afterwards.
    /// @{
    std::string encode(const Dom& dom);
    std::string encode(const Element& element);
    /// @}

private:
    struct Private;

    template <class Value>
    std::ostream& encodeToStream(std::ostream& out, const Value& value);
    template <class Value>
    void encodeToString(std::string& out, const Value& value);

    std::ostream* m_out;  // not owned, may be null
    std::unique_ptr<Private> m_private;
};

}  // namespace zo::Tessera

#endif
