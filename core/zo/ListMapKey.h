#ifndef ZO_LISTMAPKEY_H
#define ZO_LISTMAPKEY_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>

namespace zo {

/// A key as the tree of a `ListMap` sees it. The key itself stays in its entry.
template <class Key, class Compare>
class ListMapKey {
public:
    explicit ListMapKey(const Key& key) noexcept : m_key(&key) {}
    bool operator<(const ListMapKey& other) const { return Compare()(*m_key, *other.m_key); }

private:
    const Key* m_key;
};

/// The same order for texts, which nearly always differ in their first bytes already: these are
/// compared as one number, and mostly spare the look at the texts themselves.
template <>
class ListMapKey<std::string, std::less<std::string>> {
public:
    explicit ListMapKey(const std::string& key) noexcept : m_first(firstBytes(key)), m_key(&key) {}
    bool operator<(const ListMapKey& other) const noexcept {
        if (m_first != other.m_first) {
            return m_first < other.m_first;
        }
        const std::size_t length = m_key->size();
        const std::size_t otherLength = other.m_key->size();
        return length <= k_width && otherLength <= k_width ? length < otherLength
                                                           : *m_key < *other.m_key;
    }

private:
    static constexpr std::size_t k_width = sizeof(std::uint64_t);

    /// The first eight bytes, the first one highest, as if zeros followed the text.
    static std::uint64_t firstBytes(const std::string& key) noexcept {
        const char* const text = key.data();
        const std::size_t length = key.size();
        if (length >= k_width) {
            return highestFirst<std::uint64_t>(text);
        }
        if (length >= k_width / 2) {
            // The two halves overlap, where they agree.
            const std::uint64_t head = highestFirst<std::uint32_t>(text);
            const std::uint64_t tail = highestFirst<std::uint32_t>(text + length - k_width / 2);
            return head << 32 | tail << (8 * (k_width - length));
        }
        std::uint64_t bytes = 0;
        for (std::size_t i = 0; i < length; ++i) {
            bytes |= highestFirst<std::uint8_t>(text + i) << (8 * (k_width - 1 - i));
        }
        return bytes;
    }

    /// The number whose bytes stand at `text`, the first one highest.
    template <class Number>
    static std::uint64_t highestFirst(const char* text) noexcept {
        Number bytes = 0;
        std::memcpy(&bytes, text, sizeof(bytes));
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
        return __builtin_bswap64(bytes) >> (8 * (k_width - sizeof(bytes)));
#else
        return bytes;
#endif
    }

    std::uint64_t m_first;
    const std::string* m_key;
};

}  // namespace zo

#endif
