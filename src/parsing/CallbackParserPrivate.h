#ifndef ZO_TESSERA_SRC_PARSING_CALLBACKPARSERPRIVATE_H
#define ZO_TESSERA_SRC_PARSING_CALLBACKPARSERPRIVATE_H

#include <yajl/yajl_parse.h>

#include <cstddef>
#include <limits>
#include <list>
#include <memory>
#include <optional>

#include <zo/Tessera/CallbackParser.h>
#include <zo/Tessera/Exception.h>

#include "parsing/TokeniserLocale.h"
#include "support/BlockPool.h"

namespace zo::Tessera {

struct YajlHandleDeleter {
    void operator()(yajl_handle handle) const { yajl_free(handle); }
};
using YajlHandle = std::unique_ptr<yajl_handle_t, YajlHandleDeleter>;

struct YajlErrorTextDeleter {
    yajl_handle m_handle;
    void operator()(unsigned char* text) const { yajl_free_error(m_handle, text); }
};
using YajlErrorText = std::unique_ptr<unsigned char, YajlErrorTextDeleter>;

struct CallbackParser::Private {
    // The tokeniser starts a token again whenever a piece ends within it. Pieces of a token that is
    // longer than this are put together, lest it cost the square of its length.
    static constexpr size_t k_longToken = 4096;

    // Where the tokeniser converts numbers, it takes their lengths for an `unsigned int`. Half of
    // that, for how much of a piece stands behind its last event is not known.
    static constexpr size_t k_longestConvertible = std::numeric_limits<unsigned int>::max() / 2;

    BlockPool m_memory;
    YajlHandle m_handle;
    yajl_status m_status = yajl_status_ok;
    yajl_callbacks m_callbacks = {};
    // Kept after an error that the listener accepted, who may still hold the text. Freed before the
    // handle that they came from.
    std::list<YajlErrorText> m_acceptedErrors;
    TokeniserLocale m_locale;
    size_t m_piece = 0;            // the bytes of the piece at hand
    size_t m_silence = 0;          // the bytes of the pieces before it, since the last event
    bool m_tracksSettled = false;  // whether the next one is kept
    // Where in the piece at hand the token of its last event ends that the listener accepted.
    std::optional<size_t> m_settled;

    /// For the rest of the piece at hand.
    void prepareConversion() {
        if (m_callbacks.yajl_double == nullptr) {
            return;
        }
        if (m_piece > k_longestConvertible || m_silence > k_longestConvertible - m_piece) {
            throw Exception("Text too long for numbers to be converted!");
        }
        m_locale.enterClassic();
    }

    /// How much text to read before the tokeniser gets it, but for the end of a stream.
    size_t amountAtOnce() const {
        return m_status == yajl_status_ok && m_silence >= k_longToken ? m_silence : 1;
    }
};

}  // namespace zo::Tessera

#endif
