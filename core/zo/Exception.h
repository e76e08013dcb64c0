#ifndef ZO_EXCEPTION_H
#define ZO_EXCEPTION_H

#include <exception>
#include <memory>
#include <string>

#include <zo/export.h>

namespace zo {

/// The base of the exceptions of all `zo` libraries: a message and, optionally, what caused it.
///
/// A derived class says its text by overriding `generateWhat` alone, and overrides `clone`, so that
/// a copy made through the base keeps its class.
///
/// `what` writes to the exception: one that several threads share (a `std::exception_ptr`) needs
/// locking around it.
class ZO_CORE_EXPORT Exception : public std::exception {
public:
    /// Keeps a clone of `cause`, which may be null and need not outlive the call.
    explicit Exception(const std::string& message, const Exception* cause = nullptr);
    /// The copy has a clone of the cause of its own.
    Exception(const Exception& other);
    /// As the copy constructor; out of memory, this exception is as before. `other` may be this
    /// exception or stand in its chain of causes.
    Exception& operator=(const Exception& other);
    ~Exception() override;

    /// The text that `generateWhat` builds, built anew by each call; empty when it cannot be built.
    /// Good until the next call and as long as the exception.
    const char* what() const noexcept override;

    /// Replaces `out` by the whole text: here the message, then, with a cause, " Caused by: " and
    /// the cause's text; without a message the leading blank is left out. After an exception `out`
    /// is as before.
    virtual void generateWhat(std::string& out) const;

    /// A copy of the exception's own class. The caller owns it.
    virtual Exception* clone() const;

private:
    std::string m_message;
    std::unique_ptr<const Exception> m_cause;  // may be null
    mutable std::string m_what;                // what the last what() returned
};

/// An error that shows at run time and has no class of its own.
class ZO_CORE_EXPORT RuntimeError : public Exception {
public:
    /// As `Exception`.
    explicit RuntimeError(const std::string& message, const Exception* cause = nullptr);
    RuntimeError(const RuntimeError&) = default;
    RuntimeError& operator=(const RuntimeError&) = default;
    ~RuntimeError() override;

    RuntimeError* clone() const override;
};

}  // namespace zo

#endif
