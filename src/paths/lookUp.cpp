#include "paths/lookUp.h"

#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include <zo/Tessera/ElementGetter.h>

#include "paths/PathMachine.h"
#include "paths/segments.h"

namespace zo::Tessera {

namespace {

/// What the machine finds at the end of `path`, whose segments before `rest` lead to `start`.
[[gnu::cold, gnu::noinline]] const Element* goOn(const Path& path, const char* rest,
                                                 const Element& start) {
    ElementGetter getter(path, start, false);
    const auto position = static_cast<size_t>(rest - path.data());
    PathMachine(TextSource(std::string_view(path).substr(position)), getter, position).run();
    return getter.pathExists() ? getter.currentElement() : nullptr;
}

/// What is behind one segment of a path.
struct Step {
    const Element* child;  // null when there is none
    const char* next;      // null when the machine has to read the segment
};

constexpr Step k_leftToMachine{nullptr, nullptr};

bool endsKey(const char* text, const char* end) {
    return text == end || *text == '.' || *text == '[';
}

std::string_view textBetween(const char* begin, const char* end) {
    return {begin, static_cast<size_t>(end - begin)};
}

/// Follows a key with backslashes, unless it is long.
[[gnu::flatten, gnu::noinline]] Step followEscaped(const Element& from, const char* key,
                                                   const char* end) {
    std::array<char, 64> unescaped{};
    const auto room = static_cast<std::ptrdiff_t>(unescaped.size());
    const char* const limit = end - key > room ? key + room : end;
    char* last = unescaped.data();
    const char* next = key;
    for (;;) {
        while (next != limit && isPlain(pathCharacter(*next))) {
            *last++ = *next++;
        }
        if (next == limit || *next != '\\') {
            break;
        }
        if (++next == limit) {
            return k_leftToMachine;
        }
        *last++ = *next++;
    }
    if (!endsKey(next, end)) {
        return k_leftToMachine;
    }
    return {memberOf(from, textBetween(unescaped.data(), last)), next};
}

Step followKey(const Element& from, const char* segment, const char* end) {
    const char* const key = segment + (*segment == '.' ? 1 : 0);
    const char* next = key;
    while (next != end && isPlain(pathCharacter(*next))) {
        ++next;
    }
    if (next != end && *next == '\\') {
        return followEscaped(from, key, end);
    }
    if (next == key || !endsKey(next, end)) {
        return k_leftToMachine;
    }
    return {memberOf(from, textBetween(key, next)), next};
}

/// Above 9 for what is no digit.
unsigned char digitAt(const char* text) {
    return static_cast<unsigned char>(*text - '0');
}

// No look at the end of the text: a zero follows it.
Step followIndex(const Element& from, const char* segment) {
    constexpr size_t maxDigits = std::numeric_limits<unsigned long>::digits10;
    const char* const digits = segment + 1;
    const char* next = digits;
    unsigned long index = 0;
    for (unsigned char digit = 0; (digit = digitAt(next)) <= 9; ++next) {
        index = 10 * index + digit;
    }
    const size_t count = textBetween(digits, next).size();
    if (*next != ']' || count == 0 || count > maxDigits) {
        return k_leftToMachine;
    }
    return {itemOf(from, index), next + 1};
}

}  // namespace

// Follows keys and plain indexes by itself, and leaves the rest of a path to the machine from the
// first segment on that has anything else, or may break the syntax.
[[gnu::flatten]] const Element* lookUp(const Path& path, const Element& root) {
    const char* const end = path.data() + path.size();
    const Element* current = &root;
    for (const char* segment = path.data(); segment != end;) {
        const Step step =
            *segment == '[' ? followIndex(*current, segment) : followKey(*current, segment, end);
        if (!step.next) {
            return goOn(path, segment, *current);
        }
        if (!step.child) {
            return nullptr;
        }
        current = step.child;
        segment = step.next;
    }
    return current;
}

}  // namespace zo::Tessera
