#include "support/classicLocale.h"

#include <locale>
#include <new>

namespace zo::Tessera {

std::ostringstream classicStream() {
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    stream.exceptions(std::ios::badbit);
    return stream;
}

locale_t classicCLocale() {
    static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
    if (!classic) {
        throw std::bad_alloc();
    }
    return classic;
}

}  // namespace zo::Tessera
