#include <zo/DecNumber.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

namespace zo::Tessera {

namespace {

/// A NaN on either side compares equal.
template <class T>
int order(const T& left, const T& right) {
    return left > right ? 1 : (right > left ? -1 : 0);
}

int order(const zo::DecNumber& left, const zo::DecNumber& right) {
    return order(left.compare(right), 0);
}

/// The binary forms against each other: all nine pairs.
/// @{
template <class T>
int compareBinary(T left, T right) {
    return order(left, right);
}

template <class Left, class Right>
int compareBinary(Left left, Right right) {
    return BasicNumber::compare(left, right);
}

int compareBinary(unsigned long long left, long long right) {
    return -BasicNumber::compare(right, left);
}

int compareBinary(double left, long long right) {
    return -BasicNumber::compare(right, left);
}

int compareBinary(double left, unsigned long long right) {
    return -BasicNumber::compare(right, left);
}
/// @}

}  // namespace

int BasicNumber::compare(long long a, unsigned long long b) {
    // A signed 0 counts as smaller than an unsigned one: the unsigned conversions rely on it.
    return a <= 0 ? -1 : order(static_cast<unsigned long long>(a), b);
}

int BasicNumber::compare(long long a, double b) {
    return order(static_cast<double>(a), b);
}

int BasicNumber::compare(unsigned long long a, double b) {
    return b < 0.0 ? 1 : order(static_cast<double>(a), b);
}

int BasicNumber::compare(long long a, const std::string& b) {
    return order(zo::DecNumber(a), zo::DecNumber(b));
}

int BasicNumber::compare(unsigned long long a, const std::string& b) {
    return order(zo::DecNumber(a), zo::DecNumber(b));
}

int BasicNumber::compare(double a, const std::string& b) {
    return order(zo::DecNumber(a), zo::DecNumber(b));
}

template <class T, class>
int BasicNumber::compare(const T& x) const {
    switch (type()) {
        case ebLongLong:
            return compareBinary(m_binary.asLongLong, x);
        case ebULongLong:
            return compareBinary(m_binary.asULongLong, x);
        case ebDouble:
            return compareBinary(m_binary.asDouble, x);
        case ebBigDecimal:
            return order(zo::DecNumber(m_text.asString()), zo::DecNumber(x));
        default:
            throw zo::RuntimeError("Unknown type, implementation missing");
    }
}

template int BasicNumber::compare(const long long& x) const;
template int BasicNumber::compare(const unsigned long long& x) const;
template int BasicNumber::compare(const double& x) const;

int BasicNumber::compare(const BasicNumber& other) const {
    switch (other.type()) {
        case ebDouble:
            return compare(other.m_binary.asDouble);
        case ebULongLong:
            return compare(other.m_binary.asULongLong);
        case ebLongLong:
            return compare(other.m_binary.asLongLong);
        default:
            throw Exception("Uncomparable type.");
    }
}

}  // namespace zo::Tessera
