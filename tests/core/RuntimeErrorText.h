#ifndef CORE_RUNTIMEERRORTEXT_H
#define CORE_RUNTIMEERRORTEXT_H

#include <string>

#include <zo/Exception.h>

/// The text of the `zo::RuntimeError` that `action` throws, or "nothing thrown".
template <class Action>
std::string runtimeErrorText(Action&& action) {
    try {
        action();
    } catch (const zo::RuntimeError& error) {
        return error.what();
    }
    return "nothing thrown";
}

#endif
