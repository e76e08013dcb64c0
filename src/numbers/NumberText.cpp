#include <zo/Tessera/NumberText.h>

#include <memory>

namespace zo::Tessera {

NumberText& NumberText::operator=(NumberText&& other) noexcept {
    if (&other != this) {
        clear();
        take(other);
    }
    return *this;
}

const std::string& NumberText::asString() const {
    if (m_length != k_isString) {
        setString(std::make_unique<std::string>(view()).release());
    }
    return *string();
}

void NumberText::assignAnew(std::string_view text) {
    if (m_length == k_isString) {
        // As a string it stays one, and its memory is used again.
        string()->assign(text);
    } else {
        setString(std::make_unique<std::string>(text).release());
    }
}

}  // namespace zo::Tessera
