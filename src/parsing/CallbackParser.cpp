#include <zo/Tessera/CallbackParser.h>

#include <exception>
#include <istream>
#include <new>

#include "parsing/CallbackParserPrivate.h"

namespace zo::Tessera {

namespace {

// Observable: the tokeniser's messages show the text around an error within one piece.
constexpr std::streamsize k_pieceLength = 255;

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
    std::list<YajlErrorText> text;
    text.emplace_back(nullptr, YajlErrorTextDeleter{handle});
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
    m_private->m_settled.reset();
    m_private->prepareConversion();
    m_private->m_silence += length;
    return yajl_parse(m_private->m_handle.get(), data, length);
}

/// Calls the listener of the parser that `context` is.
template <class Event>
int CallbackParser::tell(void* context, const Event& event) {
    const CallbackParser& parser = *static_cast<CallbackParser*>(context);
    Private& state = *parser.m_private;
    state.m_silence = 0;
    int answer = 0;
    {
        const WhileListening scope(state.m_locale);
        answer = event(parser.listener());
    }
    if (state.m_tracksSettled && answer != 0) {
        state.m_settled = yajl_get_bytes_consumed(state.m_handle.get());
    }
    // The listener may have chosen the callbacks anew.
    state.prepareConversion();
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
