#ifndef ZO_DECNUMBER_H
#define ZO_DECNUMBER_H

#include <iosfwd>
#include <string>

#include <zo/export.h>

namespace zo {

/// An exact decimal of any length: read from text or from a built-in number, compared, written and
/// converted. It does not calculate. No member depends on a locale.
///
/// Invariants:
/// 1. The value is `m_digits` with a point after the first digit, times ten to `m_exponent`,
///    negative if `m_negative`.
/// 2. `m_digits` neither begins nor ends with a zero. Zero has no digits, exponent 0 and no sign:
///    equal values have equal fields.
/// 3. `m_exponent` is within +/-`k_maxExponent`.
///
/// No member expands the exponent: "1e999999999" costs what "1e9" costs. Members are linear in the
/// number of digits at most. A number that was moved from may only be destroyed or assigned to.
class ZO_CORE_EXPORT DecNumber {
public:
    /// The largest exponent, and, with a minus, the smallest: ten to the 17th.
    static constexpr long long k_maxExponent = 100'000'000'000'000'000;

    /// Reads an optional sign, digits with an optional point before, among or behind them, and an
    /// optional exponent: "e" or "E", an optional sign, digits. Anything else, blanks included,
    /// throws `zo::RuntimeError`, and so does an exponent beyond `k_maxExponent`: the one written,
    /// be the number a zero, or the one that the number has with its point behind its first
    /// non-zero digit. A null pointer throws `zo::RuntimeError` "Null pointer exception: text may
    /// not be null".
    /// @{
    explicit DecNumber(const std::string& text);
    explicit DecNumber(const char* text);
    /// @}

    /// The decimal with the fewest digits that reads back to `value`: 0.1 gives 0.1. A NaN or an
    /// infinity throws `zo::RuntimeError`.
    explicit DecNumber(double value);

    /// Exactly `value`.
    /// @{
    explicit DecNumber(int value);
    explicit DecNumber(unsigned int value);
    explicit DecNumber(long value);
    explicit DecNumber(unsigned long value);
    explicit DecNumber(long long value);
    explicit DecNumber(unsigned long long value);
    /// @}

    /// Writes a JSON number as formatted output, without needless zeros: plain (0.001, 15) from
    /// 1e-7 up to but not including 1e21, otherwise as d.ddde+NN (1e+21, -1.5e-8). Returns `out`.
    /// Reading the text back gives an equal number.
    std::ostream& writeTo(std::ostream& out) const;

    /// Negative, zero or positive as this number is less than, equal to or greater than `other`.
    /// Exact. Does not throw.
    int compare(const DecNumber& other) const noexcept;

    /// Rounds toward zero, then throws `zo::RuntimeError` when the result does not fit: 255.9 fits
    /// into an `unsigned char`, and -0.9 into any unsigned type.
    /// @{
    operator char() const;
    operator unsigned char() const;
    operator short() const;
    operator unsigned short() const;
    operator int() const;
    operator unsigned int() const;
    operator long() const;
    operator unsigned long() const;
    operator long long() const;
    operator unsigned long long() const;
    /// @}

    /// The nearest value, the even one of two equally near. What is too large gives an infinity,
    /// what is too small a zero, each with this number's sign.
    /// @{
    operator float() const;
    operator double() const;
    /// @}

private:
    int sign() const noexcept;
    std::string text() const;
    std::string plainText() const;
    std::string scientificText() const;
    template <class Integer>
    Integer toInteger(const char* typeName) const;
    template <class Floating>
    Floating toFloating() const;

    std::string m_digits;
    long long m_exponent = 0;
    bool m_negative = false;
};

}  // namespace zo

#endif
