#ifndef ZO_LISTMAPKEY_H
#define ZO_LISTMAPKEY_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

namespace zo {

/// A key as the tree of a `ListMap` sees it. The key itself stays in its entry. `Sought` is one
/// that is looked for in the tree, and need not be a `Key`.
template <class Key, class Compare>
class ListMapKey {
public:
    using Sought = ListMapKey;

    explicit ListMapKey(const Key& key) noexcept : m_key(&key) {}
    bool operator<(const ListMapKey& other) const { return Compare()(*m_key, *other.m_key); }
    /// Whether the order takes the two for one key.
    bool operator==(const Key& other) const {
        return !Compare()(*m_key, other) && !Compare()(other, *m_key);
    }

private:
    const Key* m_key;
};

/// The same order for texts, which nearly always differ in their first bytes already: these are
/// compared as one number, and mostly spare the look at the texts themselves.
template <>
class ListMapKey<std::string, std::less<std::string>> {
    static constexpr std::size_t k_width = sizeof(std::uint64_t);

public:
    /// A text, which must outlive this.
    class Sought {
    public:
        explicit Sought(std::string_view key) noexcept : m_first(firstBytes(key)), m_key(key) {}
        bool operator<(const ListMapKey& key) const noexcept { return less(*this, key); }
        bool operator==(const std::string& key) const noexcept {
            return m_key.size() == key.size() && sameBytes(m_key.data(), key.data(), key.size());
        }

    private:
        friend class ListMapKey;

        std::string_view text() const noexcept { return m_key; }

        std::uint64_t m_first;
        std::string_view m_key;
    };

    explicit ListMapKey(const std::string& key) noexcept : m_first(firstBytes(key)), m_key(&key) {}
    bool operator<(const ListMapKey& other) const noexcept { return less(*this, other); }
    bool operator<(const Sought& sought) const noexcept { return less(*this, sought); }

private:
    std::string_view text() const noexcept { return *m_key; }

    template <class Left, class Right>
    static bool less(const Left& left, const Right& right) noexcept {
        if (left.m_first < right.m_first) {
            return true;
        }
        return left.m_first == right.m_first && lessBehind(left.text(), right.text());
    }

    /// The order of texts whose first eight bytes are the same, by eight more at a time.
    static bool lessBehind(std::string_view left, std::string_view right) noexcept {
        const std::size_t common = std::min(left.size(), right.size());
        for (std::size_t i = k_width; i < common; i += k_width) {
            // The last eight overlap with those before, where the texts agree.
            const std::size_t place = std::min(i, common - k_width);
            const auto leftBytes = highestFirst<std::uint64_t>(left.data() + place);
            const auto rightBytes = highestFirst<std::uint64_t>(right.data() + place);
            if (leftBytes != rightBytes) {
                return leftBytes < rightBytes;
            }
        }
        return left.size() < right.size();
    }

    /// Short texts are compared without a call.
    static bool sameBytes(const char* left, const char* right, std::size_t length) noexcept {
        if (length >= k_width) {
            return highestFirst<std::uint64_t>(left) == highestFirst<std::uint64_t>(right) &&
                   std::memcmp(left + k_width, right + k_width, length - k_width) == 0;
        }
        return firstBytes({left, length}) == firstBytes({right, length});
    }

    /// The first eight bytes, the first one highest, as if zeros followed the text.
    static std::uint64_t firstBytes(std::string_view key) noexcept {
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
