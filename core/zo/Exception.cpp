#include <zo/Exception.h>

namespace zo {

namespace {

std::unique_ptr<const Exception> cloneOf(const Exception* exception) {
    return std::unique_ptr<const Exception>(exception == nullptr ? nullptr : exception->clone());
}

}  // namespace

Exception::Exception(const std::string& message, const Exception* cause)
    : m_message(message), m_cause(cloneOf(cause)) {}

// The text is not copied: what() builds it anew, and the copy may be of another class.
Exception::Exception(const Exception& other)
    : std::exception(other), m_message(other.m_message), m_cause(cloneOf(other.m_cause.get())) {}

// Both copies are made before anything changes: they may fail, and `other` may be our own cause.
Exception& Exception::operator=(const Exception& other) {
    std::string message = other.m_message;
    std::unique_ptr<const Exception> cause = cloneOf(other.m_cause.get());
    m_message.swap(message);
    m_cause.swap(cause);
    return *this;
}

Exception::~Exception() = default;

const char* Exception::what() const noexcept {
    try {
        std::string text;
        generateWhat(text);
        m_what.swap(text);
    } catch (...) {
        m_what.clear();
    }
    return m_what.c_str();
}

void Exception::generateWhat(std::string& out) const {
    std::string text = m_message;
    if (m_cause) {
        std::string causeText;
        m_cause->generateWhat(causeText);
        text += text.empty() ? "Caused by: " : " Caused by: ";
        text += causeText;
    }
    out.swap(text);
}

Exception* Exception::clone() const {
    return new Exception(*this);
}

RuntimeError::RuntimeError(const std::string& message, const Exception* cause)
    : Exception(message, cause) {}

RuntimeError::~RuntimeError() = default;

RuntimeError* RuntimeError::clone() const {
    return new RuntimeError(*this);
}

}  // namespace zo
