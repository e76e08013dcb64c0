#ifndef ZO_TESSERA_TESTS_SUPPORT_NOTFINITE_H
#define ZO_TESSERA_TESTS_SUPPORT_NOTFINITE_H

#include <limits>

inline constexpr double k_infinity = std::numeric_limits<double>::infinity();
inline constexpr double k_nan = std::numeric_limits<double>::quiet_NaN();

#endif
