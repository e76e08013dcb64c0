// yajl alone, the floor: reading is its tokeniser with callbacks that do nothing, fed with the same
// pieces and settings as the stream operator of this library; writing is its generator driven with
// the document's events, which were gathered before.

#include <yajl/yajl_gen.h>
#include <yajl/yajl_parse.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

#include "libraries/adapter.h"

namespace {

enum class EventKind : unsigned char {
    null,
    falseValue,
    trueValue,
    number,
    string,
    openMap,
    closeMap,
    openArray,
    closeArray
};

struct Event {
    EventKind kind;
    size_t start = 0;  // of the text of a number, a string or a key
    size_t length = 0;
};

struct Events {
    std::vector<Event> list;
    std::string texts;

    int add(EventKind kind) {
        list.push_back({kind});
        return 1;
    }

    int add(EventKind kind, const char* text, size_t length) {
        list.push_back({kind, texts.size(), length});
        texts.append(text, length);
        return 1;
    }
};

const yajl_callbacks k_emptyCallbacks = {
    [](void*) { return 1; },
    [](void*, int) { return 1; },
    nullptr,
    nullptr,
    [](void*, const char*, size_t) { return 1; },
    [](void*, const unsigned char*, size_t) { return 1; },
    [](void*) { return 1; },
    [](void*, const unsigned char*, size_t) { return 1; },
    [](void*) { return 1; },
    [](void*) { return 1; },
    [](void*) { return 1; },
};

Events& eventsOf(void* context) {
    return *static_cast<Events*>(context);
}

int addString(void* context, const unsigned char* text, size_t length) {
    return eventsOf(context).add(EventKind::string, reinterpret_cast<const char*>(text), length);
}

const yajl_callbacks k_collectingCallbacks = {
    [](void* context) { return eventsOf(context).add(EventKind::null); },
    [](void* context, int value) {
        return eventsOf(context).add(value ? EventKind::trueValue : EventKind::falseValue);
    },
    nullptr,
    nullptr,
    [](void* context, const char* text, size_t length) {
        return eventsOf(context).add(EventKind::number, text, length);
    },
    addString,
    [](void* context) { return eventsOf(context).add(EventKind::openMap); },
    addString,
    [](void* context) { return eventsOf(context).add(EventKind::closeMap); },
    [](void* context) { return eventsOf(context).add(EventKind::openArray); },
    [](void* context) { return eventsOf(context).add(EventKind::closeArray); },
};

void parse(const std::string& text, const yajl_callbacks& callbacks, void* context) {
    constexpr size_t pieceLength = 255;
    yajl_handle_t* const handle = yajl_alloc(&callbacks, nullptr, context);
    yajl_config(handle, yajl_allow_comments, 1);
    yajl_config(handle, yajl_dont_validate_strings, 1);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    yajl_status status = yajl_status_ok;
    for (size_t at = 0; at < text.size() && status == yajl_status_ok; at += pieceLength) {
        status = yajl_parse(handle, bytes + at, std::min(pieceLength, text.size() - at));
    }
    yajl_free(handle);
    require(status == yajl_status_ok, "not read");
}

yajl_gen_status send(yajl_gen generator, const Events& events, const Event& event) {
    const char* const text = events.texts.data() + event.start;
    switch (event.kind) {
        case EventKind::null:
            return yajl_gen_null(generator);
        case EventKind::falseValue:
            return yajl_gen_bool(generator, 0);
        case EventKind::trueValue:
            return yajl_gen_bool(generator, 1);
        case EventKind::number:
            return yajl_gen_number(generator, text, event.length);
        case EventKind::string:
            return yajl_gen_string(generator, reinterpret_cast<const unsigned char*>(text),
                                   event.length);
        case EventKind::openMap:
            return yajl_gen_map_open(generator);
        case EventKind::closeMap:
            return yajl_gen_map_close(generator);
        case EventKind::openArray:
            return yajl_gen_array_open(generator);
        case EventKind::closeArray:
            return yajl_gen_array_close(generator);
    }
    return yajl_gen_in_error_state;
}

std::ostringstream generate(const Events& events, bool beautify) {
    const std::unique_ptr<yajl_gen_t, void (*)(yajl_gen)> generator(yajl_gen_alloc(nullptr),
                                                                    yajl_gen_free);
    yajl_gen_config(generator.get(), yajl_gen_beautify, beautify ? 1 : 0);
    yajl_gen_config(generator.get(), yajl_gen_indent_string, "");
    for (const Event& event : events.list) {
        require(send(generator.get(), events, event) == yajl_gen_status_ok, "not written");
    }
    const unsigned char* bytes = nullptr;
    size_t length = 0;
    yajl_gen_get_buf(generator.get(), &bytes, &length);
    std::ostringstream out;
    out.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(length));
    return out;
}

struct Yajl {
    static constexpr const char* k_name = "yajl";
    using Document = Events;

    static void read(Events&, const std::string& text) { parse(text, k_emptyCallbacks, nullptr); }

    static void collect(Events& events, const std::string& text) {
        parse(text, k_collectingCallbacks, &events);
    }

    static std::ostringstream write(const Events& events) { return generate(events, true); }
    static std::ostringstream writeCompact(const Events& events) { return generate(events, false); }
};

const KnownLibrary k_yajl(libraryOf<Yajl>());

}  // namespace
