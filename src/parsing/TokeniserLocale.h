#ifndef ZO_TESSERA_SRC_PARSING_TOKENISERLOCALE_H
#define ZO_TESSERA_SRC_PARSING_TOKENISERLOCALE_H

#include <clocale>
#include <utility>

#include "support/classicLocale.h"

namespace zo::Tessera {

/// The locale of the calling thread while a piece is tokenised. yajl converts doubles by it, and so
/// gets the "C" locale when it is to convert; the listener still runs under the caller's own.
struct TokeniserLocale {
    bool m_tokenising = false;
    locale_t m_callers = nullptr;  // set while the thread is under the "C" locale

    void enterClassic() {
        if (m_tokenising && m_callers == nullptr) {
            m_callers = uselocale(classicCLocale());
        }
    }
};

/// While it lives, a piece is being tokenised; the caller's locale is in force again afterwards.
class WhileTokenising {
public:
    explicit WhileTokenising(TokeniserLocale& locale) : m_locale(locale) {
        m_locale.m_tokenising = true;
    }
    WhileTokenising(const WhileTokenising&) = delete;
    WhileTokenising& operator=(const WhileTokenising&) = delete;
    ~WhileTokenising() {
        m_locale.m_tokenising = false;
        if (m_locale.m_callers != nullptr) {
            uselocale(std::exchange(m_locale.m_callers, nullptr));
        }
    }

private:
    TokeniserLocale& m_locale;
};

/// While it lives, the listener runs, under the caller's locale. It may change that: what it leaves
/// is the caller's from then on.
class WhileListening {
public:
    explicit WhileListening(TokeniserLocale& locale)
        : m_locale(locale), m_classic(locale.m_callers ? uselocale(locale.m_callers) : nullptr) {}
    WhileListening(const WhileListening&) = delete;
    WhileListening& operator=(const WhileListening&) = delete;
    ~WhileListening() {
        if (m_classic != nullptr) {
            m_locale.m_callers = uselocale(m_classic);
        }
    }

private:
    TokeniserLocale& m_locale;
    locale_t m_classic;
};

}  // namespace zo::Tessera

#endif
