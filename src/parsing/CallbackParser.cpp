#include <zo/Tessera/CallbackParser.h>

#include <yajl/yajl_parse.h>

#include <istream>
#include <list>
#include <new>

#include <zo/Tessera/Exception.h>

#include "parsing/TokeniserLocale.h"

namespace zo::Tessera {

namespace {

// Observable: the tokeniser's messages show the text around an error within one piece.
constexpr std::streamsize k_pieceLength = 255;

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

}  // namespace

struct CallbackParser::Private {
    Handle m_handle;
    yajl_status m_status = yajl_status_ok;
    yajl_callbacks m_callbacks = {};
    // Kept after an error that the listener accepted, who may still hold the text. Freed before the
    // handle that they came from.
    std::list<ErrorText> m_acceptedErrors;
    TokeniserLocale m_locale;

    void prepareConversion() {
        if (m_callbacks.yajl_double != nullptr) {
            m_locale.enterClassic();
        }
    }
};

CallbackParserListener::~CallbackParserListener() = default;

bool CallbackParserListener::use_number_callback() {
    return true;
}

CallbackParser::CallbackParser(CallbackParserListener* listener)
    : m_listener(listener), m_private(std::make_unique<Private>()) {
    setCallbacks();
    m_private->m_handle.reset(yajl_alloc(&m_private->m_callbacks, nullptr, this));
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
    char piece[k_pieceLength];
    while (in.good()) {
        const std::streamsize length = in.readsome(piece, k_pieceLength);
        if (length < 1) {
            break;
        }
        parse(piece, static_cast<size_t>(length));
    }
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
    const WhileTokenising scope(m_private->m_locale);
    m_private->prepareConversion();
    return yajl_parse(m_private->m_handle.get(), data, length);
}

/// Calls the listener of the parser that `context` is.
template <class Event>
int CallbackParser::tell(void* context, const Event& event) {
    const CallbackParser& parser = *static_cast<CallbackParser*>(context);
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
