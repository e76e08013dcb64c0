#include <zo/Tessera/CallbackParser.h>

#include <yajl/yajl_parse.h>

#include <exception>
#include <istream>
#include <limits>
#include <list>
#include <new>

#include <zo/Tessera/Exception.h>

#include "parsing/TokeniserLocale.h"
#include "support/BlockPool.h"

namespace zo::Tessera {

namespace {

// Observable: the tokeniser's messages show the text around an error within one piece.
constexpr std::streamsize k_pieceLength = 255;

// The tokeniser starts a token again whenever a piece ends within it. Pieces of a token that is
// longer than this are put together, lest it cost the square of its length.
constexpr size_t k_longToken = 4096;

// Where the tokeniser converts numbers, it takes their lengths for an `unsigned int`. Half of that,
// for how much of a piece stands behind its last event is not known.
constexpr size_t k_longestConvertible = std::numeric_limits<unsigned int>::max() / 2;

struct HandleDeleter {
    void operator()(yajl_handle handle) const { yajl_free(handle); }
};
using Handle = std::unique_ptr<yajl_handle_t, HandleDeleter>;

struct ErrorTextDeleter {
    yajl_handle m_handle;
    void operator()(unsigned char* text) const { yajl_free_error(m_handle, text); }
};
using ErrorText = std::unique_ptr<unsigned char, ErrorTextDeleter>;

const unsigned char* asBytes(const char* text) {
    return reinterpret_cast<const unsigned char*>(text);
}

const char* asText(const unsigned char* bytes) {
    return reinterpret_cast<const char*>(bytes);
}

/// Replaces `text` by the stream's next pieces, as many as make up `amount` or as there are. Gives
/// what the stream throws, for `text` may hold what came before.
std::exception_ptr readPieces(std::istream& in, size_t amount, std::string& text) {
    text.clear();
    // First, for what was read could not be put back.
    text.reserve(amount + k_pieceLength);
    while (text.size() < amount && in.good()) {
        char piece[k_pieceLength];
        std::streamsize length = 0;
        try {
            length = in.readsome(piece, k_pieceLength);
        } catch (...) {
            return std::current_exception();
        }
        if (length < 1) {
            break;
        }
        text.append(piece, static_cast<size_t>(length));
    }
    return nullptr;
}

}  // namespace

struct CallbackParser::Private {
    BlockPool m_memory;
    Handle m_handle;
    yajl_status m_status = yajl_status_ok;
    yajl_callbacks m_callbacks = {};
    // Kept after an error that the listener accepted, who may still hold the text. Freed before the
    // handle that they came from.
    std::list<ErrorText> m_acceptedErrors;
    TokeniserLocale m_locale;
    size_t m_piece = 0;    // the bytes of the piece at hand
    size_t m_silence = 0;  // the bytes of the pieces before it, since the last event

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

CallbackParserListener::~CallbackParserListener() = default;

bool CallbackParserListener::use_number_callback() {
    return true;
}

CallbackParser::CallbackParser(CallbackParserListener* listener)
    : m_listener(listener), m_private(std::make_unique<Private>()) {
    setCallbacks();
    yajl_alloc_funcs memory = {BlockPool::allocate, BlockPool::reallocate, BlockPool::release,
                               &m_private->m_memory};
    m_private->m_handle.reset(yajl_alloc(&m_private->m_callbacks, &memory, this));
    if (!m_private->m_handle) {
        throw std::bad_alloc();
    }
    yajl_config(m_private->m_handle.get(), yajl_allow_comments, 1);
    yajl_config(m_private->m_handle.get(), yajl_dont_validate_strings, 1);
}

CallbackParser::~CallbackParser() = default;

void CallbackParser::setCallbacks() {
    const bool numbersAsText = m_listener != nullptr && m_listener->use_number_callback();
    yajl_callbacks& callbacks = m_private->m_callbacks;
    callbacks.yajl_null = cb_null;
    callbacks.yajl_boolean = cb_boolean;
    callbacks.yajl_integer = numbersAsText ? nullptr : cb_integer;
    callbacks.yajl_double = numbersAsText ? nullptr : cb_double;
    callbacks.yajl_number = numbersAsText ? cb_number : nullptr;
    callbacks.yajl_string = cb_string;
    callbacks.yajl_start_map = cb_start_map;
    callbacks.yajl_map_key = cb_map_key;
    callbacks.yajl_end_map = cb_end_map;
    callbacks.yajl_start_array = cb_start_array;
    callbacks.yajl_end_array = cb_end_array;
}

std::istream& CallbackParser::parse(std::istream& in) {
    std::string text;
    do {
        const std::exception_ptr failure = readPieces(in, m_private->amountAtOnce(), text);
        if (!text.empty()) {
            parse(text);
        }
        if (failure) {
            std::rethrow_exception(failure);
        }
    } while (!text.empty());
    return in;
}

int CallbackParser::parse(const char* data, size_t length) {
    yajl_handle_t* const handle = m_private->m_handle.get();
    m_private->m_status = static_cast<yajl_status>(tokenise(asBytes(data), length));
    if (m_private->m_status == yajl_status_ok) {
        return 0;
    }
    constexpr int verbose = 1;
    std::list<ErrorText> text;
    text.emplace_back(nullptr, ErrorTextDeleter{handle});
    text.front().reset(yajl_get_error(handle, verbose, asBytes(data), length));
    if (!text.front()) {
        throw std::bad_alloc();
    }
    const int accepted = listener().cb_error(asText(text.front().get()));
    if (accepted == 0) {
        throw Exception(asText(text.front().get()));
    }
    m_private->m_acceptedErrors.splice(m_private->m_acceptedErrors.end(), text);
    return accepted;
}

int CallbackParser::parse(const std::string& text) {
    return parse(text.data(), text.size());
}

int CallbackParser::state() const {
    return m_private->m_status;
}

CallbackParserListener& CallbackParser::listener() const {
    if (!m_listener) {
        throw Exception("No listener attached to CallbackParser!");
    }
    return *m_listener;
}

/// Parses a piece and returns yajl's status.
int CallbackParser::tokenise(const unsigned char* data, size_t length) {
    if (m_private->m_memory.failed()) {
        throw std::bad_alloc();
    }
    const WhileTokenising scope(m_private->m_locale);
    m_private->m_piece = length;
    m_private->prepareConversion();
    m_private->m_silence += length;
    return yajl_parse(m_private->m_handle.get(), data, length);
}

/// Calls the listener of the parser that `context` is.
template <class Event>
int CallbackParser::tell(void* context, const Event& event) {
    const CallbackParser& parser = *static_cast<CallbackParser*>(context);
    parser.m_private->m_silence = 0;
    int answer = 0;
    {
        const WhileListening scope(parser.m_private->m_locale);
        answer = event(parser.listener());
    }
    // The listener may have chosen the callbacks anew.
    parser.m_private->prepareConversion();
    return answer;
}

int CallbackParser::cb_null(void* context) {
    return tell(context, [](CallbackParserListener& to) { return to.cb_null(); });
}

int CallbackParser::cb_boolean(void* context, int value) {
    return tell(context, [=](CallbackParserListener& to) { return to.cb_boolean(value != 0); });
}

int CallbackParser::cb_integer(void* context, long long value) {
    return tell(context, [=](CallbackParserListener& to) { return to.cb_integer(value); });
}

int CallbackParser::cb_double(void* context, double value) {
    return tell(context, [=](CallbackParserListener& to) { return to.cb_double(value); });
}

int CallbackParser::cb_number(void* context, const char* text, size_t length) {
    return tell(context, [=](CallbackParserListener& to) { return to.cb_number(text, length); });
}

int CallbackParser::cb_string(void* context, const unsigned char* text, size_t length) {
    return tell(context,
                [=](CallbackParserListener& to) { return to.cb_string(asText(text), length); });
}

int CallbackParser::cb_start_map(void* context) {
    return tell(context, [](CallbackParserListener& to) { return to.cb_start_map(); });
}

int CallbackParser::cb_map_key(void* context, const unsigned char* text, size_t length) {
    return tell(context,
                [=](CallbackParserListener& to) { return to.cb_map_key(asText(text), length); });
}

int CallbackParser::cb_end_map(void* context) {
    return tell(context, [](CallbackParserListener& to) { return to.cb_end_map(); });
}

int CallbackParser::cb_start_array(void* context) {
    return tell(context, [](CallbackParserListener& to) { return to.cb_start_array(); });
}

int CallbackParser::cb_end_array(void* context) {
    return tell(context, [](CallbackParserListener& to) { return to.cb_end_array(); });
}

}  // namespace zo::Tessera
