#ifndef ZO_TESSERA_TESTS_PARSING_PARSEFAILURE_H
#define ZO_TESSERA_TESTS_PARSING_PARSEFAILURE_H

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <typeinfo>

#include <zo/Tessera/Exception.h>

/// The `ParseException` that `action` throws as `message | the four positions | path`, for example
/// `Unexpected map | -1 -1 -1 -1 | no path` or `... | path "a.list"`. The path's address in the
/// text differs from run to run, therefore the parts. Anything else gives a text that equals none.
template <class Action>
std::string parseFailure(const Action& action) {
    try {
        action();
    } catch (const zo::Tessera::ParseException& exception) {
        EXPECT_EQ(typeid(exception).name(), typeid(zo::Tessera::ParseException).name());
        std::ostringstream out;
        out << exception.message() << " | " << exception.line() << ' ' << exception.column() << ' '
            << exception.endLine() << ' ' << exception.endColumn() << " | ";
        const std::string* const path = exception.elementPath();
        out << (path ? "path \"" + *path + "\"" : "no path");
        return out.str();
    } catch (const std::exception& other) {
        return std::string("<< ") + typeid(other).name() + ": " + other.what() + " >>";
    }
    return "<< nothing thrown >>";
}

#endif
