#ifndef ZO_TESSERA_SRC_SUPPORT_CLASSICLOCALE_H
#define ZO_TESSERA_SRC_SUPPORT_CLASSICLOCALE_H

#include <clocale>
#include <sstream>

namespace zo::Tessera {

/// A string stream that no global locale reaches, and that passes on a failed allocation instead of
/// silently losing text.
std::ostringstream classicStream();

/// The "C" locale of the C library.
locale_t classicCLocale();

/// While it lives, the C library's conversions use the "C" locale in this thread.
class ClassicCLocaleScope {
public:
    ClassicCLocaleScope() : m_previous(uselocale(classicCLocale())) {}
    ClassicCLocaleScope(const ClassicCLocaleScope&) = delete;
    ClassicCLocaleScope& operator=(const ClassicCLocaleScope&) = delete;
    ~ClassicCLocaleScope() { uselocale(m_previous); }

private:
    locale_t m_previous;
};

}  // namespace zo::Tessera

#endif
