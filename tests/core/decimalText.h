#ifndef CORE_DECIMALTEXT_H
#define CORE_DECIMALTEXT_H

#include <sstream>
#include <string>

#include <zo/DecNumber.h>

/// What a number writes.
inline std::string written(const zo::DecNumber& number) {
    std::ostringstream out;
    number.writeTo(out);
    return out.str();
}

#endif
