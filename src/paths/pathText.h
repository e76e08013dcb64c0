#ifndef ZO_TESSERA_SRC_PATHS_PATHTEXT_H
#define ZO_TESSERA_SRC_PATHS_PATHTEXT_H

#include <array>
#include <cstddef>
#include <istream>
#include <string>
#include <string_view>

/// \file
/// What path texts consist of, and where they come from.

namespace zo::Tessera {

/// What the last read of a stream gives when it is cut to a character. A byte of this value within
/// a text ends it, too.
constexpr char k_endOfPath = '\xFF';

/// The kinds of characters that the syntax tells apart. The first three are plain parts of a key.
enum PathCharacter : unsigned char {
    pcDigit,
    pcStar,
    pcOther,
    pcDot,
    pcOpen,
    pcClose,
    pcEnd,
    pcBackslash
};

inline PathCharacter pathCharacter(char c) {
    static constexpr std::array<PathCharacter, 256> k_kinds = [] {
        std::array<PathCharacter, 256> kinds{};
        const auto set = [&](char member, PathCharacter kind) {
            kinds[static_cast<unsigned char>(member)] = kind;
        };
        for (PathCharacter& kind : kinds) {
            kind = pcOther;
        }
        for (char digit = '0'; digit <= '9'; ++digit) {
            set(digit, pcDigit);
        }
        set('.', pcDot);
        set('[', pcOpen);
        set(']', pcClose);
        set('*', pcStar);
        set('\\', pcBackslash);
        set(k_endOfPath, pcEnd);
        return kinds;
    }();
    return k_kinds[static_cast<unsigned char>(c)];
}

/// Whether a character is a part of the key that it stands in, and no more.
inline bool isPlain(PathCharacter kind) {
    return kind <= pcOther;
}

/// A text that comes from a stream.
class StreamSource {
public:
    explicit StreamSource(std::istream& in) : m_in(in) {}

    bool good() const { return m_in.good(); }
    char get() { return static_cast<char>(m_in.get()); }

    /// Appends `c`, the character that was read last, to a key, and what can be read of the key
    /// at once. Returns the length of the latter.
    static size_t appendTo(std::string& key, char c) {
        key.push_back(c);
        return 0;
    }

private:
    std::istream& m_in;
};

/// A text in memory, which ends and is read as a stream of it would be.
class TextSource {
public:
    explicit TextSource(std::string_view text)
        : m_next(text.data()), m_end(text.data() + text.size()) {}

    bool good() const { return !m_atEnd; }

    char get() {
        m_atEnd = m_next == m_end;
        return m_atEnd ? k_endOfPath : *m_next++;
    }

    size_t appendTo(std::string& key, char c) {
        if (m_atEnd) {
            key.push_back(c);
            return 0;
        }
        const char* const begin = m_next;
        const char* next = begin;
        while (next != m_end && isPlain(pathCharacter(*next))) {
            ++next;
        }
        m_next = next;
        const auto length = static_cast<size_t>(next - begin);
        key.append(begin - 1, length + 1);
        return length;
    }

private:
    const char* m_next;
    const char* m_end;
    bool m_atEnd = false;
};

}  // namespace zo::Tessera

#endif
