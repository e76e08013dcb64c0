#include <zo/Tessera/Exception.h>

#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <typeinfo>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include "support/HostileLocale.h"
#include "support/exceptionText.h"
#include "support/rowName.h"
#include "support/thrown.h"

namespace {

using zo::Tessera::Element;
using zo::Tessera::Exception;
using zo::Tessera::Object;
using zo::Tessera::ParseException;

static_assert(std::is_base_of_v<Exception, ParseException>);
static_assert(std::is_base_of_v<zo::Exception, ParseException>);
static_assert(std::is_copy_constructible_v<ParseException>);
static_assert(std::is_copy_assignable_v<ParseException>);

std::string fieldsOf(const ParseException& exception) {
    std::ostringstream out;
    out << exception.message() << " | " << exception.line() << ' ' << exception.column() << ' '
        << exception.endLine() << ' ' << exception.endColumn() << " | "
        << (exception.elementPath() ? *exception.elementPath() : "no path");
    return out.str();
}

/// {"list":[null]}; its null has the path "list[0]".
class ExceptionOfAnElement : public testing::Test {
protected:
    Object m_root;
    Element* m_list = Element::createArray(&m_root, "list");
    Element* m_item = Element::createNull(m_list);
};

struct Position {
    const char* name;
    int line;
    int column;
    int endLine;
    int endColumn;
    const char* text;
};

void PrintTo(const Position& row, std::ostream* out) {
    *out << row.name;
}

class ParseExceptionText : public testing::TestWithParam<Position> {};

TEST_P(ParseExceptionText, NamesThePositionsThatAreThere) {
    const Position& row = GetParam();
    const ParseException made("bad", row.line, row.column, row.endLine, row.endColumn, nullptr);
    EXPECT_EQ(textOf(made), row.text);

    ParseException changed("other", 100, 200, 300, 400);
    changed.init("bad", row.line, row.column, row.endLine, row.endColumn);
    EXPECT_EQ(textOf(changed), row.text);
}

TEST_P(ParseExceptionText, EndsWithTheAddressOfThePath) {
    const Position& row = GetParam();
    const Object element;
    const ParseException exception(&element, "bad", row.line, row.column, row.endLine,
                                   row.endColumn, nullptr);
    EXPECT_EQ(textOf(exception), row.text + addressPart(exception));
}

// Nothing stands between the position and the message: callers match on this text.
INSTANTIATE_TEST_SUITE_P(
    EachCombination, ParseExceptionText,
    testing::Values(Position{"Nothing", -1, -1, -1, -1, "bad"},
                    Position{"Line", 3, -1, -1, -1, "Parse error at 3bad"},
                    Position{"Column", -1, 7, -1, -1, "bad"},
                    Position{"LineColumn", 3, 7, -1, -1, "Parse error at 3,7bad"},
                    Position{"EndLine", -1, -1, 5, -1, "5bad"},
                    Position{"LineEndLine", 3, -1, 5, -1, "Parse error at 3-5bad"},
                    Position{"ColumnEndLine", -1, 7, 5, -1, "5bad"},
                    Position{"LineColumnEndLine", 3, 7, 5, -1, "Parse error at 3,7-5bad"},
                    Position{"EndColumn", -1, -1, -1, 9, "bad"},
                    Position{"LineEndColumn", 3, -1, -1, 9, "Parse error at 3bad"},
                    Position{"ColumnEndColumn", -1, 7, -1, 9, "bad"},
                    Position{"LineColumnEndColumn", 3, 7, -1, 9, "Parse error at 3,7bad"},
                    Position{"EndLineEndColumn", -1, -1, 5, 9, "5,9bad"},
                    Position{"LineEndLineEndColumn", 3, -1, 5, 9, "Parse error at 3-5,9bad"},
                    Position{"ColumnEndLineEndColumn", -1, 7, 5, 9, "5,9bad"},
                    Position{"Everything", 3, 7, 3, 9, "Parse error at 3,7-3,9bad"}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    OnlyMinusOneIsAbsent, ParseExceptionText,
    testing::Values(Position{"Zero", 0, 0, 0, 0, "Parse error at 0,0-0,0bad"},
                    Position{"MinusTwo", -2, -2, -2, -2, "Parse error at -2,-2--2,-2bad"},
                    Position{"Largest", 2147483647, 1234567, 2147483647, 1234567,
                             "Parse error at 2147483647,1234567-2147483647,1234567bad"}),
    k_rowName);

TEST(ParseException, WritesPlainDecimalsInAHostileLocale) {
    const HostileLocale locale;
    EXPECT_EQ(textOf(ParseException("bad", 1234567, 2345678, 3456789, 4567890)),
              "Parse error at 1234567,2345678-3456789,4567890bad");
}

TEST(ParseException, MadeOfAMessageNamesNoElement) {
    const ParseException exception("bad", 1, 2, 3, 4, nullptr);
    EXPECT_EQ(fieldsOf(exception), "bad | 1 2 3 4 | no path");
}

TEST(ParseException, MadeOfANullElementNamesNone) {
    const Element* const none = nullptr;
    const ParseException exception(none, "bad", 1, 2, 3, 4, nullptr);
    EXPECT_EQ(fieldsOf(exception), "bad | 1 2 3 4 | no path");
    EXPECT_EQ(textOf(exception), "Parse error at 1,2-3,4bad");
}

TEST_F(ExceptionOfAnElement, HoldsItsPath) {
    EXPECT_EQ(fieldsOf(ParseException(m_item, "bad", 1, 2, 3, 4, nullptr)),
              "bad | 1 2 3 4 | list[0]");
    EXPECT_EQ(fieldsOf(ParseException(m_list, "bad", -1, -1, -1, -1)), "bad | -1 -1 -1 -1 | list");
}

TEST_F(ExceptionOfAnElement, HoldsAnEmptyPathForTheRoot) {
    EXPECT_EQ(fieldsOf(ParseException(&m_root, "bad", -1, -1, -1, -1)), "bad | -1 -1 -1 -1 | ");
}

TEST_F(ExceptionOfAnElement, OutlivesTheElement) {
    const ParseException exception(m_item, "bad", 1, 2, 3, 4);
    m_root.clear();
    EXPECT_EQ(fieldsOf(exception), "bad | 1 2 3 4 | list[0]");
}

TEST_F(ExceptionOfAnElement, KeepsItsPathThroughInit) {
    ParseException exception(m_item, "bad", 1, 2, 3, 4);
    exception.init("worse", 5, 6, -1, -1);
    EXPECT_EQ(fieldsOf(exception), "worse | 5 6 -1 -1 | list[0]");
}

TEST_F(ExceptionOfAnElement, GivesACopyAPathOfItsOwn) {
    const ParseException exception(m_item, "bad", 1, 2, 3, 4);
    const ParseException copy(exception);
    EXPECT_EQ(fieldsOf(copy), "bad | 1 2 3 4 | list[0]");
    EXPECT_NE(copy.elementPath(), exception.elementPath());
    EXPECT_EQ(textOf(copy), "Parse error at 1,2-3,4bad" + addressPart(copy));
}

TEST_F(ExceptionOfAnElement, GivesACloneOfTheSameClassAPathOfItsOwn) {
    auto exception = std::make_unique<ParseException>(m_item, "bad", 1, 2, 3, 4);
    const zo::Exception& base = *exception;
    const std::unique_ptr<const zo::Exception> clone(base.clone());
    exception.reset();
    const zo::Exception& cloned = *clone;
    EXPECT_EQ(typeid(cloned).name(), typeid(ParseException).name());
    EXPECT_EQ(fieldsOf(dynamic_cast<const ParseException&>(cloned)), "bad | 1 2 3 4 | list[0]");
}

TEST_F(ExceptionOfAnElement, IsAssignedWhole) {
    const ParseException exception(m_item, "bad", 1, 2, 3, 4);
    ParseException target(m_list, "old", 9, 9, 9, 9);
    EXPECT_EQ(&(target = exception), &target);
    EXPECT_EQ(fieldsOf(target), "bad | 1 2 3 4 | list[0]");
    EXPECT_NE(target.elementPath(), exception.elementPath());
}

TEST_F(ExceptionOfAnElement, LosesItsPathToOneWithout) {
    ParseException target(m_item, "old", 9, 9, 9, 9);
    target = ParseException("bad", 1, 2, 3, 4);
    EXPECT_EQ(fieldsOf(target), "bad | 1 2 3 4 | no path");
}

TEST_F(ExceptionOfAnElement, IsUnchangedByAssignmentToItself) {
    ParseException exception(m_item, "bad", 1, 2, 3, 4);
    const ParseException& self = exception;
    exception = self;
    EXPECT_EQ(fieldsOf(exception), "bad | 1 2 3 4 | list[0]");
}

TEST(ParseException, DoesNotShowItsCause) {
    const zo::RuntimeError cause("the cause");
    EXPECT_EQ(textOf(ParseException("bad", 1, -1, -1, -1, &cause)), "Parse error at 1bad");
    const Element* const none = nullptr;
    EXPECT_EQ(textOf(ParseException(none, "bad", 1, -1, -1, -1, &cause)), "Parse error at 1bad");
}

TEST(ParseException, OutlivesItsCause) {
    auto cause = std::make_unique<zo::RuntimeError>("the cause");
    const ParseException exception("bad", 1, -1, -1, -1, cause.get());
    cause.reset();
    const std::unique_ptr<const ParseException> clone(exception.clone());
    EXPECT_EQ(textOf(*clone), "Parse error at 1bad");
}

TEST(ParseException, KeepsAZeroByteInItsMessage) {
    const std::string message("a\0b", 3);
    std::string text;
    ParseException(message, -1, -1, -1, -1).generateWhat(text);
    EXPECT_EQ(text, message);
}

TEST(ParseException, IsCaughtAsEachOfItsBases) {
    const auto fail = [] { throw ParseException("bad", 1, -1, -1, -1); };
    EXPECT_EQ(thrown<ParseException>(fail), "Parse error at 1bad");
    EXPECT_THROW(fail(), Exception);
    EXPECT_THROW(fail(), zo::Exception);
    EXPECT_THROW(fail(), std::exception);
}

}  // namespace
