#ifndef ZO_TESSERA_NUMBERTEXT_H
#define ZO_TESSERA_NUMBERTEXT_H

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// The text of a number. One of up to `k_mostInside` bytes, as nearly all are, has no memory of its
/// own until somebody asks for it as a `std::string`.
class ZO_TESSERA_EXPORT NumberText {
public:
    static constexpr std::size_t k_mostInside = 22;

    NumberText() noexcept = default;
    explicit NumberText(std::string_view text) { assign(text); }
    NumberText(const NumberText& other) { assign(other.view()); }
    NumberText(NumberText&& other) noexcept { take(other); }
    NumberText& operator=(const NumberText& other) {
        if (&other != this) {
            assign(other.view());
        }
        return *this;
    }
    NumberText& operator=(NumberText&& other) noexcept;
    ~NumberText() { clear(); }

    bool empty() const noexcept { return view().empty(); }
    /// The bytes, with a zero behind them. Good until the text changes or becomes a string.
    std::string_view view() const noexcept {
        return m_length == k_isString ? *string() : std::string_view(m_inside, m_length);
    }
    /// The text as a string, which it becomes for that if it was none: then out of memory
    /// `std::bad_alloc` is thrown, and nothing changed. Good until the text changes.
    const std::string& asString() const;

    /// `text` may be a part of this one. Out of memory the text is as before.
    void assign(std::string_view text) {
        if (m_length != k_isString && text.size() <= k_mostInside) {
            setInside(text);
        } else {
            assignAnew(text);
        }
    }
    void clear() noexcept {
        if (m_length == k_isString) {
            delete string();
        }
        setInside({});
    }

private:
    static constexpr unsigned char k_isString = 0xFF;
    static constexpr std::size_t k_pointerSize = sizeof(void*);

    /// Only if it is one.
    std::string* string() const noexcept {
        std::string* pointer = nullptr;
        std::memcpy(&pointer, m_inside, k_pointerSize);
        return pointer;
    }
    void setString(std::string* owned) const noexcept {
        std::memcpy(m_inside, &owned, k_pointerSize);
        m_length = k_isString;
    }
    void setInside(std::string_view text) noexcept {
        if (!text.empty()) {
            std::memmove(m_inside, text.data(), text.size());
        }
        m_inside[text.size()] = '\0';
        m_length = static_cast<unsigned char>(text.size());
    }
    void take(NumberText& other) noexcept {
        std::memcpy(m_inside, other.m_inside, sizeof(m_inside));
        m_length = other.m_length;
        other.setInside({});
    }
    void assignAnew(std::string_view text);

    // The bytes and a zero, or the pointer to an owned string.
    mutable char m_inside[k_mostInside + 1] = "";
    mutable unsigned char m_length = 0;
};

}  // namespace zo::Tessera

#endif
