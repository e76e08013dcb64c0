#include <cmath>
#include <limits>
#include <type_traits>

#include <zo/DecNumber.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

namespace zo::Tessera {

namespace {

/// A plain char counts as signed on every platform.
template <class T>
using Counted = std::conditional_t<std::is_same_v<T, char>, signed char, T>;

/// The binary form in which the bounds of `T` are compared.
template <class T>
using Bound = std::conditional_t<
    std::is_floating_point_v<T>, double,
    std::conditional_t<std::is_signed_v<Counted<T>>, long long, unsigned long long>>;

/// The integer that a double is truncated to before its low bits are taken.
template <class T>
using Truncated =
    std::conditional_t<sizeof(T) < sizeof(int) || std::is_same_v<T, int>, int,
                       std::conditional_t<std::is_same_v<T, unsigned int>, long long, Bound<T>>>;

/// Toward zero. What does not fit, a NaN included, gives the top bit alone on every platform.
template <class Integer>
Integer truncated(double value) {
    const double past = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    const double whole = std::trunc(value);
    const double least = std::is_signed_v<Integer> ? -past : 0.0;
    if (whole >= least && whole < past) {
        return static_cast<Integer>(whole);
    }
    using Bits = std::make_unsigned_t<Integer>;
    return static_cast<Integer>(static_cast<Bits>(Bits{1} << (sizeof(Bits) * 8 - 1)));
}

template <class T>
T fromDouble(double value) {
    if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(value);
    } else {
        return static_cast<T>(truncated<Truncated<T>>(value));
    }
}

template <class T>
T valueAs(const BasicNumber& number) {
    T value = 0;
    return number.getValue(value);
}

}  // namespace

template <class T>
T& BasicNumber::getValue(T& out) const {
    const EBinaryType form = type();
    // The lower bound of a floating type is its smallest positive normal value.
    const T min = static_cast<T>(std::numeric_limits<Counted<T>>::min());
    const T max = static_cast<T>(std::numeric_limits<Counted<T>>::max());
    if (compare(Bound<T>{static_cast<Counted<T>>(min)}) < 0 ||
        compare(Bound<T>{static_cast<Counted<T>>(max)}) > 0) {
        throw ValueOutOfRange<BasicNumber, T>(*this, min, max);
    }
    switch (form) {
        case ebLongLong:
            return out = static_cast<T>(m_binary.asLongLong);
        case ebULongLong:
            return out = static_cast<T>(m_binary.asULongLong);
        case ebDouble:
            return out = fromDouble<T>(m_binary.asDouble);
        case ebBigDecimal:
            return out = static_cast<T>(zo::DecNumber(m_text.asString()));
        default:
            return out;
    }
}

char BasicNumber::toChar() const {
    return valueAs<char>(*this);
}

unsigned char BasicNumber::toUChar() const {
    return valueAs<unsigned char>(*this);
}

short BasicNumber::toShort() const {
    return valueAs<short>(*this);
}

unsigned short BasicNumber::toUShort() const {
    return valueAs<unsigned short>(*this);
}

int BasicNumber::toInt() const {
    return valueAs<int>(*this);
}

unsigned int BasicNumber::toUInt() const {
    return valueAs<unsigned int>(*this);
}

long BasicNumber::toLong() const {
    return valueAs<long>(*this);
}

unsigned long BasicNumber::toULong() const {
    return valueAs<unsigned long>(*this);
}

long long BasicNumber::toLongLong() const {
    return valueAs<long long>(*this);
}

unsigned long long BasicNumber::toULongLong() const {
    return valueAs<unsigned long long>(*this);
}

float BasicNumber::toFloat() const {
    return valueAs<float>(*this);
}

double BasicNumber::toDouble() const {
    return valueAs<double>(*this);
}

template char& BasicNumber::getValue(char& out) const;
template unsigned char& BasicNumber::getValue(unsigned char& out) const;
template short& BasicNumber::getValue(short& out) const;
template unsigned short& BasicNumber::getValue(unsigned short& out) const;
template int& BasicNumber::getValue(int& out) const;
template unsigned int& BasicNumber::getValue(unsigned int& out) const;
template long& BasicNumber::getValue(long& out) const;
template unsigned long& BasicNumber::getValue(unsigned long& out) const;
template long long& BasicNumber::getValue(long long& out) const;
template unsigned long long& BasicNumber::getValue(unsigned long long& out) const;
template float& BasicNumber::getValue(float& out) const;
template double& BasicNumber::getValue(double& out) const;

}  // namespace zo::Tessera
