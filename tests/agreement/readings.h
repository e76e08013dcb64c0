#ifndef ZO_TESSERA_TESTS_AGREEMENT_READINGS_H
#define ZO_TESSERA_TESTS_AGREEMENT_READINGS_H

#include <string>

/// What a library makes of a JSON text, in a form that both share: members in their order, strings
/// as their bytes but for a backslash before `"` and backslash, integers in decimal, doubles by the
/// fewest digits that tell them apart, always with an exponent, and without the sign of a zero.
/// "refused" for a text that is refused, "nothing" for one that gives no value.
/// @{
std::string ourReading(const std::string& text);
std::string theirReading(const std::string& text);
/// @}

/// The text as a library writes what it has read, which must be a value.
/// @{
std::string writtenByUs(const std::string& text);
std::string writtenByThem(const std::string& text);
/// @}

#endif
