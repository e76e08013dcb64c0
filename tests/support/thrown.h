#ifndef ZO_TESSERA_TESTS_SUPPORT_THROWN_H
#define ZO_TESSERA_TESTS_SUPPORT_THROWN_H

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

/// The text of the exception that `action` throws, which must be of exactly the class `Expected`, a
/// `zo::Exception`. The text is `generateWhat`'s, so that a zero byte does not cut it; `what()` is
/// checked to agree. Anything else gives a text that equals no message.
template <class Expected, class Action>
std::string thrown(const Action& action) {
    try {
        action();
    } catch (const Expected& exception) {
        EXPECT_EQ(typeid(exception).name(), typeid(Expected).name());
        std::string text;
        exception.generateWhat(text);
        EXPECT_STREQ(exception.what(), text.c_str());
        return text;
    } catch (const std::exception& other) {
        return std::string("<< ") + typeid(other).name() + ": " + other.what() + " >>";
    }
    return "<< nothing thrown >>";
}

#endif
