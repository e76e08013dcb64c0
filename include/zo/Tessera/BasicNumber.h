#ifndef ZO_TESSERA_BASICNUMBER_H
#define ZO_TESSERA_BASICNUMBER_H

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include <zo/Tessera/NumberText.h>
#include <zo/Tessera/export.h>

namespace zo {
class DecNumber;
}

namespace zo::Tessera {

/// Whether `T` is one of `Types`.
template <class T, class... Types>
inline constexpr bool k_isOneOf = (std::is_same_v<T, Types> || ...);

/// Whether `BasicNumber::as<T>` is there: for C++17's arithmetic types but `bool`, and for
/// `std::string`.
template <class T>
inline constexpr bool k_holdsNumbers =
    k_isOneOf<T, char, signed char, unsigned char, wchar_t, char16_t, char32_t, short,
              unsigned short, int, unsigned int, long, unsigned long, long long, unsigned long long,
              float, double, long double, std::string>;

/// A JSON number in two forms: its text, exactly as it was set or read, and a binary form. Either
/// may be missing and is derived when first needed. A number set from text keeps that text, unless
/// it is empty, so what was read is written back unchanged; a number set from a built-in type gets
/// its text when somebody first asks for it.
///
/// Texts are not checked when set. A text with one of ".eE" is read as `atof` reads it; of the
/// others, one that begins with "-" as a `long long` and the rest as an `unsigned long long`, as
/// formatted extraction reads them. What is no number is no error: it leaves what these leave, 0 or
/// the former value. No text depends on a locale.
///
/// Even const readers fill the caches, all but `as` and `tryAs`: threads that share a number need
/// outside locking.
class ZO_TESSERA_EXPORT BasicNumber {
public:
    /// The binary form that a number holds.
    enum EBinaryType : int {
        ebNone = 0,  ///< none yet; only the text is valid
        ebLongLong = 1,
        ebULongLong = 2,
        ebDouble = 3,
        ebBigDecimal = 4  ///< the text is the value; no operation sets this
    };

    /// The bounds that long texts are checked against. All are empty, and callers rely on what
    /// follows: an integer text of 20 characters or more, or of 19 or more with a leading "-", is
    /// out of range, whatever its digits.
    struct ZO_TESSERA_EXPORT Limits {
        std::string maxLongLong;
        std::string minLongLong;
        std::string maxULongLong;
        std::string minULongLong;
        std::string minDouble;
        std::string maxDouble;
    };
    static const Limits k_limits;

    /// The signed integer 0, with the text "0".
    BasicNumber();
    BasicNumber(const BasicNumber&) = default;
    BasicNumber(BasicNumber&&) noexcept = default;
    BasicNumber& operator=(const BasicNumber& other);
    BasicNumber& operator=(BasicNumber&&) noexcept = default;
    ~BasicNumber() = default;

    /// \name Setting from text
    /// Keeps the text unchanged, as the only form. Wide text becomes UTF-8. The text may be the
    /// number's own. If memory runs out the number is as before. A null pointer throws
    /// `zo::Tessera::Exception` "Null pointer exception: text may not be null", unless the length
    /// is given as 0.
    /// @{
    void set(const std::string& text);
    void set(const char* text);
    void set(const char* text, unsigned long length);
    void set(const std::wstring& text);
    void set(const wchar_t* text);
    void set(const wchar_t* text, unsigned long length);
    /// The text that `zo::DecNumber::writeTo` writes.
    void set(const zo::DecNumber& value);
    /// @}

    /// Copies both forms. If memory runs out the number is as before.
    void set(const BasicNumber& other);

    /// \name Setting from a built-in type
    /// Keeps the binary form alone: `ebLongLong` for a signed type and `char`, `ebULongLong` for an
    /// unsigned one, `ebDouble` for a floating one. Beware: the text of a `double` has 6
    /// significant digits (1234567.0 becomes 1.23457e+06). `setExact` keeps every digit.
    /// @{
    void set(char value);
    void set(short value);
    void set(int value);
    void set(long value);
    void set(long long value);
    void set(unsigned char value);
    void set(unsigned short value);
    void set(unsigned int value);
    void set(unsigned long value);
    void set(unsigned long long value);
    void set(float value);
    void set(double value);
    /// @}

    /// Sets the text with the fewest digits that reads back to `value`, as the only form: 0.1 gives
    /// "0.1", 1234567.0 "1234567", 1e17 "1e+17", -0.0 "-0". A NaN or an infinity throws
    /// `zo::Tessera::Exception` "Number must be finite!". After any exception the number is as
    /// before.
    void setExact(double value);

    /// The binary form, derived first when there is none, so never `ebNone`. A text out of range
    /// throws `ValueOutOfRange<std::string, std::string>`; beware that this happens once only, and
    /// later readers use whatever binary value the number held before. Linear in the text's length,
    /// the first time.
    EBinaryType type() const;

    /// The text; the reference is good until the number is set anew or destroyed. The first call
    /// may have to make the string, and throws `std::bad_alloc` when it cannot.
    const std::string& toString() const;
    /// The text with a zero behind it, and no string made for it: good until the number is set anew
    /// or destroyed, or `toString` asked.
    std::string_view text() const;
    std::wstring toWString() const;
    /// Writes the text and nothing else; returns the stream.
    /// @{
    std::ostream& writeAt(std::ostream& out) const;
    std::wostream& writeAt(std::wostream& out) const;
    /// @}

    /// The binary form as an exact decimal. Throws what `type` throws, and `zo::RuntimeError` for a
    /// NaN or an infinity.
    zo::DecNumber toDecNumber() const;

    /// \name Conversion to a built-in type
    /// The value, truncated toward zero when an integer is asked of a `double`. A value out of the
    /// type's range throws `ValueOutOfRange<BasicNumber, T>`; deriving the binary form may throw
    /// what `type` throws.
    ///
    /// Three things surprise. The lower bound of `float` and `double` is the smallest positive
    /// normal value: zero and every negative number are out of range. A signed 0 (set from an
    /// `int`, or read from "-0") lies below every unsigned type's 0, so its unsigned conversions
    /// throw. And what compares equal to a bound passes: the doubles 2^63 and 2^64, and a NaN,
    /// become the integer with the top bit alone (of which `unsigned int` and the narrower types
    /// keep the low bits: 0). `as` does none of this.
    /// @{
    char toChar() const;
    unsigned char toUChar() const;
    short toShort() const;
    unsigned short toUShort() const;
    int toInt() const;
    unsigned int toUInt() const;
    long toLong() const;
    unsigned long toULong() const;
    long long toLongLong() const;
    unsigned long long toULongLong() const;
    float toFloat() const;
    double toDouble() const;

    /// Converts into `out`, which a throw leaves untouched, and returns it. For the twelve types
    /// of the functions above.
    template <class T>
    T& getValue(T& out) const;
    /// @}

    /// \name Exact conversion
    /// For every `T` of `k_holdsNumbers`. The answer does not depend on which forms of the number
    /// have been derived so far, and neither derives one: a number that no thread changes may be
    /// read so by many.
    ///
    /// An integer type gets the value if it has it exactly: 1e3 is 1000, 2.50e1 is 25, -0 is 0;
    /// 1.5 is out of range. A floating type gets the nearest value, zero and negative ones as well;
    /// what rounds to an infinity is out of range. What is no number (a NaN, an infinity, a text
    /// without the syntax of `zo::DecNumber`) is out of range for both. `std::string` gets a text
    /// that was set or read as it is, whatever it says, and otherwise one that reads back: the text
    /// that `toString` gives if it does, or else that of `setExact`; a NaN and an infinity have
    /// none. Of a binary `double` whose 6-digit text reads back, that text is the value: set to
    /// 0.1, it is 0.1 for a `long double`, too.
    ///
    /// Only for an empty text does the first derivation of the binary form change the answer: the
    /// number then becomes the integer that `type` leaves. Linear in the text's length.
    ///
    ///     const long long id = number.as<long long>();
    ///     const std::optional<double> ratio = number.tryAs<double>();
    /// @{

    /// The value, or `ValueOutOfRange<BasicNumber, T>`, whose bounds are those of `T`; for
    /// `std::string`, where a NaN or an infinity alone is refused, they are empty.
    template <class T, class = std::enable_if_t<k_holdsNumbers<T>>>
    T as() const;
    /// The value, or nothing.
    template <class T, class = std::enable_if_t<k_holdsNumbers<T>>>
    std::optional<T> tryAs() const;
    /// @}

    /// \name Comparison
    /// -1, 0 or 1: this number, or the first operand, against the other. Integers of one sign
    /// compare exactly; with a `double` on either side both are compared as `double`, where a NaN
    /// equals everything. Beware: a signed 0 is smaller than an unsigned 0.
    /// A text out of range throws what `type` throws.
    /// @{

    /// An `other` that is `ebBigDecimal` throws `zo::Tessera::Exception` "Uncomparable type.".
    int compare(const BasicNumber& other) const;
    /// For `long long`, `unsigned long long` and `double`.
    template <class T, class = std::enable_if_t<std::is_same_v<T, long long> ||
                                                std::is_same_v<T, unsigned long long> ||
                                                std::is_same_v<T, double>>>
    int compare(const T& x) const;

    static int compare(long long a, unsigned long long b);
    static int compare(long long a, double b);
    static int compare(unsigned long long a, double b);
    /// The text is read by `zo::DecNumber`, which throws `zo::RuntimeError` for what is no decimal.
    static int compare(long long a, const std::string& b);
    static int compare(unsigned long long a, const std::string& b);
    static int compare(double a, const std::string& b);
    /// @}

private:
    // Reading another member than the one set last gives its bits, on every compiler we support.
    union Binary {
        long long asLongLong;
        unsigned long long asULongLong;
        double asDouble;
    };

    void setText(std::string_view text);
    void becomeBinary(EBinaryType type);
    void syncToBinary() const;
    void syncToString() const;
    void requireInRange(EBinaryType type, const std::string& min, const std::string& max) const;
    [[noreturn]] void refuse(EBinaryType type, const std::string& min,
                             const std::string& max) const;

    mutable EBinaryType m_binaryType = ebLongLong;
    mutable Binary m_binary{0};
    mutable NumberText m_text{"0"};
};

/// \cond
extern template char& BasicNumber::getValue(char& out) const;
extern template unsigned char& BasicNumber::getValue(unsigned char& out) const;
extern template short& BasicNumber::getValue(short& out) const;
extern template unsigned short& BasicNumber::getValue(unsigned short& out) const;
extern template int& BasicNumber::getValue(int& out) const;
extern template unsigned int& BasicNumber::getValue(unsigned int& out) const;
extern template long& BasicNumber::getValue(long& out) const;
extern template unsigned long& BasicNumber::getValue(unsigned long& out) const;
extern template long long& BasicNumber::getValue(long long& out) const;
extern template unsigned long long& BasicNumber::getValue(unsigned long long& out) const;
extern template float& BasicNumber::getValue(float& out) const;
extern template double& BasicNumber::getValue(double& out) const;
extern template int BasicNumber::compare(const long long& x) const;
extern template int BasicNumber::compare(const unsigned long long& x) const;
extern template int BasicNumber::compare(const double& x) const;
/// \endcond

/// Writes the enumerator's name, such as "ebDouble", and ">>Unknown<<" for any other value.
/// @{
ZO_TESSERA_EXPORT std::ostream& operator<<(std::ostream& out, const BasicNumber::EBinaryType& type);
ZO_TESSERA_EXPORT std::wostream& operator<<(std::wostream& out,
                                            const BasicNumber::EBinaryType& type);
/// @}

}  // namespace zo::Tessera

#endif
