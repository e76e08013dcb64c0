#ifndef ZO_TESSERA_EXCEPTION_H
#define ZO_TESSERA_EXCEPTION_H

#include <cstddef>
#include <memory>
#include <string>

#include <zo/Exception.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// The base of what this library throws, except for the `zo::RuntimeError` of a number that is no
/// decimal; `zo::Exception` is the base of both. It captures the path of the element concerned when
/// it is made: the element may be gone when the exception is caught.
///
/// Unless told otherwise a cause is copied and may be null; the derived classes of this library do
/// not show it in their texts. `what()` is good until its next call; `clone()` gives a copy of the
/// exception's own class, owned by the caller. Out of memory an exception that is assigned to is as
/// before; so is the text given to `generateWhat`, and `what()` is empty. Where the library has no
/// memory for an exception, `std::bad_alloc` arrives in its place.
class ZO_TESSERA_EXPORT Exception : public zo::Exception {
public:
    explicit Exception(const zo::Exception* cause = nullptr);
    explicit Exception(const std::string& message, const zo::Exception* cause = nullptr);
    explicit Exception(const Element* element, const zo::Exception* cause = nullptr);
    Exception(const std::string& message, const Element* element,
              const zo::Exception* cause = nullptr);
    /// A literal null stands for a cause and for an element alike: neither is there.
    /// @{
    explicit Exception(std::nullptr_t);
    Exception(const std::string& message, std::nullptr_t);
    Exception(const Element* element, std::nullptr_t);
    /// @}
    Exception(const Exception& other);
    Exception& operator=(const Exception& other);
    ~Exception() override;

    Exception* clone() const override;

    /// The path of the element concerned, from the top of its tree; null when none was given.
    /// Good until the exception is assigned to or destroyed.
    const std::string* elementPath() const;

private:
    std::unique_ptr<const std::string> m_elementPath;
};

/// An element was asked for a value of another kind. See `Element` for which kind is named.
template <class Kind>
class ZO_TESSERA_EXPORT TypeException : public Exception {
public:
    TypeException(const Element* element, Kind requested, Kind found);
    TypeException(const TypeException&) = default;
    TypeException& operator=(const TypeException& other);
    ~TypeException() override;

    /// For example: Json type mismatch! Requestet Json type: etNumber Got Json type: etString
    /// Current element: "a.list[3]"
    void generateWhat(std::string& out) const override;
    TypeException* clone() const override;

    Kind requested() const;
    Kind found() const;

private:
    Kind m_requested;
    Kind m_found;
};

extern template class TypeException<EType>;

/// Text that does not have the structure expected of it: JSON or a path.
class ZO_TESSERA_EXPORT ParseException : public Exception {
public:
    /// Positions are -1 where they are not known.
    /// @{
    ParseException(const std::string& message, int line, int column, int endLine, int endColumn,
                   const zo::Exception* cause = nullptr);
    ParseException(const Element* element, const std::string& message, int line, int column,
                   int endLine, int endColumn, const zo::Exception* cause = nullptr);
    /// @}
    ParseException(const ParseException&) = default;
    ParseException& operator=(const ParseException& other);
    ~ParseException() override;

    /// Sets the five fields; out of memory, none.
    void init(const std::string& message, int line, int column, int endLine, int endColumn);

    /// For example: Parse error at 3,7-3,9 and the message, with nothing in between. Beware: the
    /// "Current element" that may follow is the address of the stored path; `elementPath()` has
    /// the text.
    void generateWhat(std::string& out) const override;
    ParseException* clone() const override;

    const std::string& message() const;
    int line() const;
    int column() const;
    int endLine() const;
    int endColumn() const;

private:
    std::string m_message;
    int m_line;
    int m_column;
    int m_endLine;
    int m_endColumn;
};

/// A path names an element that is not there, or that cannot be created.
class ZO_TESSERA_EXPORT PathNotFound : public Exception {
public:
    /// `element` is the one that lacks the segment, and may be null; `path` is the whole path text,
    /// `key` the segment: a key without escapes, or an index such as "[2]", where "*" shows as
    /// "[18446744073709551615]".
    PathNotFound(const Element* element, const std::string& path, const std::string& key,
                 const Exception* cause = nullptr);
    PathNotFound(const PathNotFound&) = default;
    PathNotFound& operator=(const PathNotFound& other);
    ~PathNotFound() override;

    /// For example: Path "a[2]" not found! Key "[2]". Beware: the "Current element" that may follow
    /// is the address of the stored path; `elementPath()` has the text.
    void generateWhat(std::string& out) const override;
    PathNotFound* clone() const override;

    /// References live as long as the exception.
    /// @{
    const std::string& path() const;
    const std::string& key() const;
    /// @}

private:
    std::string m_path;
    std::string m_key;
};

/// An object lacks a key. The library itself does not throw it: it is there for applications.
class ZO_TESSERA_EXPORT KeyNotFound : public Exception {
public:
    /// `element` is the one that lacks the key, and may be null.
    KeyNotFound(const Element* element, const std::string& key, const Exception* cause = nullptr);
    KeyNotFound(const KeyNotFound&) = default;
    KeyNotFound& operator=(const KeyNotFound& other);
    ~KeyNotFound() override;

    /// For example: Key "name" not found! The "Current element" may follow as for `PathNotFound`.
    void generateWhat(std::string& out) const override;
    KeyNotFound* clone() const override;

    /// Lives as long as the exception.
    const std::string& key() const;

private:
    std::string m_key;
};

/// A number that does not fit into the type asked for, or a number text whose binary form cannot be
/// derived (`From` and `To` are then `std::string`, and the bounds are empty).
/// When `From` is `BasicNumber`, `To` is one of the types of `k_holdsNumbers`.
template <class From, class To>
class ZO_TESSERA_EXPORT ValueOutOfRange : public Exception {
public:
    ValueOutOfRange(const From& value, const To& min, const To& max,
                    const zo::Exception* cause = nullptr);
    ValueOutOfRange(const ValueOutOfRange&) = default;
    ValueOutOfRange& operator=(const ValueOutOfRange& other);
    ~ValueOutOfRange() override;

    /// For example: Value out of range! Value: 3000000000 Min: -2147483648 Max: 2147483647
    /// Beware: the bounds of `char` and `unsigned char` are written as raw bytes; 0 among them ends
    /// what `what()` shows. As `what()` does, this may fill a cache: not in two threads at once.
    void generateWhat(std::string& out) const override;
    ValueOutOfRange* clone() const override;

    /// References live as long as the exception.
    /// @{
    const From& value() const;
    const To& min() const;
    const To& max() const;
    /// @}

private:
    From m_value;
    To m_min;
    To m_max;
};

extern template class ValueOutOfRange<std::string, std::string>;
extern template class ValueOutOfRange<BasicNumber, char>;
extern template class ValueOutOfRange<BasicNumber, signed char>;
extern template class ValueOutOfRange<BasicNumber, unsigned char>;
extern template class ValueOutOfRange<BasicNumber, wchar_t>;
extern template class ValueOutOfRange<BasicNumber, char16_t>;
extern template class ValueOutOfRange<BasicNumber, char32_t>;
extern template class ValueOutOfRange<BasicNumber, short>;
extern template class ValueOutOfRange<BasicNumber, unsigned short>;
extern template class ValueOutOfRange<BasicNumber, int>;
extern template class ValueOutOfRange<BasicNumber, unsigned int>;
extern template class ValueOutOfRange<BasicNumber, long>;
extern template class ValueOutOfRange<BasicNumber, unsigned long>;
extern template class ValueOutOfRange<BasicNumber, long long>;
extern template class ValueOutOfRange<BasicNumber, unsigned long long>;
extern template class ValueOutOfRange<BasicNumber, float>;
extern template class ValueOutOfRange<BasicNumber, double>;
extern template class ValueOutOfRange<BasicNumber, long double>;
extern template class ValueOutOfRange<BasicNumber, std::string>;

}  // namespace zo::Tessera

#endif
