#ifndef ZO_TESSERA_TESTS_NUMBERS_SETTO_H
#define ZO_TESSERA_TESTS_NUMBERS_SETTO_H

#include <functional>

#include <zo/Tessera/BasicNumber.h>

/// What sets a number to `value`.
template <class T>
std::function<void(zo::Tessera::BasicNumber&)> setTo(T value) {
    return [value](zo::Tessera::BasicNumber& number) { number.set(value); };
}

#endif
