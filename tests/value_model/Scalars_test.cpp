#include <zo/Tessera/TBasicElement.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/Null.h>
#include <zo/Tessera/Path.h>

#include "support/HostileLocale.h"
#include "support/NumberOf.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

using Boolean = TBasicElement<bool>;
using Number = TBasicElement<BasicNumber>;
using String = TBasicElement<std::string>;

static_assert(std::is_same_v<decltype(std::declval<String&>().value()), std::string&>);
static_assert(std::is_same_v<decltype(std::declval<const String&>().value()), const std::string&>);

template <class T>
void expectDetached(const T& element, EType type, size_t size) {
    EXPECT_EQ(element.type(), type);
    EXPECT_EQ(element.size(), size);
    EXPECT_EQ(element.parent(), nullptr);
    EXPECT_EQ(element.key(), "");
    EXPECT_EQ(element.index(), Path::k_noIndex);
}

TEST(Scalars, AreDetachedWhenMadeFromAValue) {
    expectDetached(Null(), etNull, 0);
    expectDetached(Boolean(true), etBoolean, 1);
    expectDetached(Number(numberOf(0)), etNumber, 1);
    expectDetached(String(""), etString, 1);
    expectDetached(String("three words long"), etString, 1);
}

TEST(Scalars, CopyTheirValue) {
    std::string text = "before";
    const String string(text);
    text = "after";
    EXPECT_EQ(string.value(), "before");
    BasicNumber number = numberOf(5);
    const Number element(number);
    number.set(6);
    EXPECT_EQ(element.value().toString(), "5");
    EXPECT_EQ(element.value().type(), BasicNumber::ebLongLong);
}

TEST(Scalars, LetTheirValueBeChangedInPlace) {
    Boolean boolean(false);
    boolean.value() = true;
    EXPECT_TRUE(std::as_const(boolean).value());
    Number number(numberOf(1));
    number.value().set("2.50");
    EXPECT_EQ(std::as_const(number).value().toString(), "2.50");
    String string("a");
    string.value() += "b";
    EXPECT_EQ(std::as_const(string).value(), "ab");
}

struct Written {
    const char* name;
    Element* (*make)();
    std::string text;
    std::wstring wideText;
};

class WrittenScalars : public testing::TestWithParam<Written> {};

TEST_P(WrittenScalars, AreTheSamePlainTextInBothWidths) {
    const std::unique_ptr<const Element> element(GetParam().make());
    std::ostringstream out;
    EXPECT_EQ(&element->writeTo(out), &out);
    EXPECT_EQ(out.str(), GetParam().text);
    std::wostringstream wideOut;
    EXPECT_EQ(&element->writeTo(wideOut), &wideOut);
    EXPECT_EQ(wideOut.str(), GetParam().wideText);
}

INSTANTIATE_TEST_SUITE_P(
    Scalars, WrittenScalars,
    testing::Values(
        Written{"Null", [] { return Element::createNull(); }, "null", L"null"},
        Written{"True", [] { return Element::createBoolean(true); }, "true", L"true"},
        Written{"False", [] { return Element::createBoolean(false); }, "false", L"false"},
        Written{"NumberText", [] { return Element::createNumber(numberOf("1.50E+3")); }, "1.50E+3",
                L"1.50E+3"},
        Written{"Integer", [] { return Element::createNumber(numberOf(-1234567)); }, "-1234567",
                L"-1234567"},
        Written{"Double", [] { return Element::createNumber(numberOf(2.5)); }, "2.5", L"2.5"},
        Written{"EmptyString", [] { return Element::createString(""); }, "", L""},
        Written{"QuoteInside", [] { return Element::createString("a\"b"); }, "a\"b", L"a\"b"},
        Written{"BackslashInside", [] { return Element::createString("a\\b"); }, "a\\b", L"a\\b"},
        Written{"ControlCharacters", [] { return Element::createString("a\n\tb"); }, "a\n\tb",
                L"a\n\tb"},
        Written{"ZeroInside", [] { return Element::createString(std::string("a\0b", 3)); },
                std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
        Written{"Utf8", [] { return Element::createString("gr\xC3\xBC\xC3\x9F"); },
                "gr\xC3\xBC\xC3\x9F", L"gr\u00FC\u00DF"},
        // The bytes are kept as they are; only wide text needs to understand them.
        Written{"InvalidUtf8", [] { return Element::createString("a\xFF"); }, "a\xFF", L"a\uFFFD"}),
    k_rowName);

TEST(WrittenScalars, DoNotDependOnTheLocale) {
    const Number integer(numberOf(-1234567));
    const Number real(numberOf(1234.5));
    const HostileLocale hostile;
    std::ostringstream out;
    std::wostringstream wideOut;
    for (const Number* const element : {&integer, &real}) {
        element->writeTo(out);
        element->writeTo(wideOut);
    }
    EXPECT_EQ(out.str(), "-12345671234.5");
    EXPECT_EQ(wideOut.str(), L"-12345671234.5");
}

TEST(WrittenScalars, HonourAWidthOfTheStream) {
    std::ostringstream out;
    out << std::setw(6);
    Null().writeTo(out);
    out << std::setw(6);
    Boolean(true).writeTo(out);
    out << std::setw(6);
    String("ab").writeTo(out);
    EXPECT_EQ(out.str(), "  null  true    ab");
}

TEST(WrittenScalars, ShowABooleanAsAWordWhateverTheStreamsFlags) {
    std::ostringstream out;
    out << std::noboolalpha << std::hex;
    Boolean(true).writeTo(out);
    EXPECT_EQ(out.str(), "true");
}

}  // namespace
