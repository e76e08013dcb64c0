#ifndef ZO_STRINGREF_H
#define ZO_STRINGREF_H

#include <cstddef>
#include <string>

namespace zo {

/// A stretch of characters that belong to someone else: a start and a length. It need not end in a
/// null character and may contain some. Never throws.
///
/// The characters must outlive it; a reference to a temporary string is good until the end of the
/// full expression only.
template <class Char>
class StringRef {
public:
    /// `start` may be null when `length` is 0.
    constexpr StringRef(const Char* start, std::size_t length) noexcept
        : m_start(start), m_length(length) {}
    /// The whole of `text`, until `text` changes. Implicit, so that a string can be passed.
    StringRef(const std::basic_string<Char>& text) noexcept
        : m_start(text.data()), m_length(text.size()) {}

    constexpr const Char* data() const noexcept { return m_start; }
    constexpr std::size_t size() const noexcept { return m_length; }
    constexpr const Char* begin() const noexcept { return m_start; }
    constexpr const Char* end() const noexcept { return m_start + m_length; }

private:
    const Char* m_start;
    std::size_t m_length;
};

}  // namespace zo

#endif
