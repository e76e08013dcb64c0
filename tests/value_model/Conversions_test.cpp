#include <zo/Tessera/Element.h>

#include <memory>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "BareElement.h"
#include "support/NumberOf.h"
#include "support/classicText.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

// Floating values are read from const elements only; from others the integers are as near.
static_assert(std::is_convertible_v<const Element&, double>);
static_assert(std::is_convertible_v<const Element&, float>);
static_assert(!std::is_convertible_v<Element&, double>);
static_assert(!std::is_convertible_v<Element&, float>);

/// One plain type with the smallest number texts around its upper end, or around its lower one.
struct PlainType {
    const char* name;
    const char* accepted;
    const char* converted;
    const char* refused;
    std::string message;
    std::string (*read)(Element& element);
    std::string (*readConst)(const Element& element);
    std::string (*thrownBy)(Element& element);
    std::string (*thrownByConst)(const Element& element);
};

template <class T>
PlainType plainType(const char* name, const char* accepted, const char* converted,
                    const char* refused, const std::string& message) {
    return {
        name,
        accepted,
        converted,
        refused,
        message,
        [](Element& e) { return classicText(+e.operator T()); },
        [](const Element& e) { return classicText(+e.operator T()); },
        [](Element& e) { return thrown<ValueOutOfRange<BasicNumber, T>>([&] { e.operator T(); }); },
        [](const Element& e) {
            return thrown<ValueOutOfRange<BasicNumber, T>>([&] { e.operator T(); });
        }};
}

class NumberConversions : public testing::TestWithParam<PlainType> {};

TEST_P(NumberConversions, GiveTheValue) {
    const std::unique_ptr<Element> element = value(numberOf(GetParam().accepted));
    EXPECT_EQ(GetParam().read(*element), GetParam().converted);
    EXPECT_EQ(GetParam().readConst(*element), GetParam().converted);
}

TEST_P(NumberConversions, RefuseWhatDoesNotFit) {
    const std::unique_ptr<Element> element = value(numberOf(GetParam().refused));
    EXPECT_EQ(GetParam().thrownBy(*element), GetParam().message);
    EXPECT_EQ(GetParam().thrownByConst(*element), GetParam().message);
}

TEST_P(NumberConversions, RefuseAnotherKind) {
    Object root;
    Element* const text = Element::createString("1", &root, "a");
    // A string asked for its number names etBoolean: callers match on this text.
    const char* const message =
        "Json type mismatch! Requestet Json type: etBoolean Got Json type: etString "
        "Current element: \"a\"";
    EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().read(*text); }), message);
    EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().readConst(*text); }), message);
}

// The bounds of the two char types are raw bytes.
INSTANTIATE_TEST_SUITE_P(
    Element, NumberConversions,
    testing::Values(
        plainType<char>("Char", "127", "127", "128",
                        "Value out of range! Value: 128 Min: \x80 Max: \x7F"),
        plainType<unsigned char>("UnsignedChar", "255", "255", "256",
                                 std::string("Value out of range! Value: 256 Min: \0 Max: \xFF",
                                             44)),
        plainType<short>("Short", "-32768", "-32768", "-32769",
                         "Value out of range! Value: -32769 Min: -32768 Max: 32767"),
        plainType<unsigned short>("UnsignedShort", "65535", "65535", "65536",
                                  "Value out of range! Value: 65536 Min: 0 Max: 65535"),
        plainType<int>("Int", "-2147483648", "-2147483648", "3000000000",
                       "Value out of range! Value: 3000000000 Min: -2147483648 Max: 2147483647"),
        plainType<unsigned int>("UnsignedInt", "4294967295", "4294967295", "4294967296",
                                "Value out of range! Value: 4294967296 Min: 0 Max: 4294967295"),
        plainType<long>("Long", "-1000000000000", "-1000000000000", "1e19",
                        "Value out of range! Value: 1e19 Min: -9223372036854775808 "
                        "Max: 9223372036854775807"),
        plainType<unsigned long>("UnsignedLong", "0", "0", "-1",
                                 "Value out of range! Value: -1 Min: 0 Max: 18446744073709551615"),
        plainType<long long>("LongLong", "1000000000000", "1000000000000", "-1e19",
                             "Value out of range! Value: -1e19 Min: -9223372036854775808 "
                             "Max: 9223372036854775807"),
        plainType<unsigned long long>(
            "UnsignedLongLong", "1000000000000", "1000000000000", "-1",
            "Value out of range! Value: -1 Min: 0 Max: 18446744073709551615"),
        plainType<double>("Double", "2.5", "2.5", "-1",
                          "Value out of range! Value: -1 Min: 2.22507e-308 Max: 1.79769e+308"),
        plainType<float>("Float", "2.5", "2.5", "-1",
                         "Value out of range! Value: -1 Min: 1.17549e-38 Max: 3.40282e+38")),
    k_rowName);

TEST(Conversions, AreImplicit) {
    const std::unique_ptr<Element> number = value(5);
    const int whole = *number;
    EXPECT_EQ(whole, 5);
    const double real = static_cast<const Element&>(*number);
    EXPECT_EQ(real, 5.0);
    const std::unique_ptr<Element> text = value("abc");
    const std::string copy = *text;
    EXPECT_EQ(copy, "abc");
}

TEST(Conversions, GiveTheStoredBoolean) {
    for (const bool stored : {false, true}) {
        const std::unique_ptr<Element> element = value(stored);
        EXPECT_EQ(element->operator bool(), stored);
        EXPECT_EQ(static_cast<const Element&>(*element).operator bool(), stored);
    }
}

TEST(Conversions, GiveReferencesToTheStoredNumberAndString) {
    TBasicElement<BasicNumber> number(numberOf(5));
    const Element& constNumber = number;
    EXPECT_EQ(&number.operator BasicNumber&(), &number.value());
    EXPECT_EQ(&constNumber.operator const BasicNumber&(), &number.value());
    TBasicElement<std::string> text("abc");
    const Element& constText = text;
    EXPECT_EQ(&text.operator std::string&(), &text.value());
    EXPECT_EQ(&constText.operator const std::string&(), &text.value());
}

TEST(Conversions, GiveReferencesThatWriteThrough) {
    const std::unique_ptr<Element> number = value(5);
    BasicNumber& storedNumber = *number;
    storedNumber.set("1.50");
    EXPECT_EQ(number->getNumberValue().value().toString(), "1.50");
    const std::unique_ptr<Element> text = value("abc");
    std::string& storedText = *text;
    storedText = "changed";
    EXPECT_EQ(text->getStringValue().value(), "changed");
}

TEST(Conversions, RefuseANullByTheirKind) {
    Object root;
    Element* const null = Element::createNull(&root, "n");
    const Element& constNull = *null;
    const std::string found = " Got Json type: etNull Current element: \"n\"";
    const std::string boolean = "Json type mismatch! Requestet Json type: etBoolean" + found;
    const std::string number = "Json type mismatch! Requestet Json type: etNumber" + found;
    const std::string string = "Json type mismatch! Requestet Json type: etString" + found;
    using Mismatch = TypeException<EType>;
    EXPECT_EQ(thrown<Mismatch>([&] { null->operator bool(); }), boolean);
    EXPECT_EQ(thrown<Mismatch>([&] { constNull.operator bool(); }), boolean);
    EXPECT_EQ(thrown<Mismatch>([&] { null->operator BasicNumber&(); }), number);
    EXPECT_EQ(thrown<Mismatch>([&] { constNull.operator const BasicNumber&(); }), number);
    EXPECT_EQ(thrown<Mismatch>([&] { null->operator std::string&(); }), string);
    EXPECT_EQ(thrown<Mismatch>([&] { constNull.operator const std::string&(); }), string);
}

TEST(Conversions, NeverConvertBetweenKinds) {
    EXPECT_THROW(value(1)->operator bool(), TypeException<EType>);
    EXPECT_THROW(value("1")->operator int(), TypeException<EType>);
    EXPECT_THROW(value(1)->operator std::string&(), TypeException<EType>);
    EXPECT_THROW(value(true)->operator int(), TypeException<EType>);
}

/// Notes which of its getters was asked.
class Asked : public BareElement {
public:
    Asked() : BareElement(etNull), m_boolean(true), m_number(numberOf(5)), m_string("abc") {}
    TBasicElement<bool>& getBooleanValue() override { return note("boolean", m_boolean); }
    const TBasicElement<bool>& getBooleanValue() const override {
        return note("const boolean", m_boolean);
    }
    TBasicElement<BasicNumber>& getNumberValue() override { return note("number", m_number); }
    const TBasicElement<BasicNumber>& getNumberValue() const override {
        return note("const number", m_number);
    }
    TBasicElement<std::string>& getStringValue() override { return note("string", m_string); }
    const TBasicElement<std::string>& getStringValue() const override {
        return note("const string", m_string);
    }

    mutable std::string asked;

private:
    template <class T>
    T& note(const char* getter, T& result) const {
        asked = getter;
        return result;
    }

    TBasicElement<bool> m_boolean;
    TBasicElement<BasicNumber> m_number;
    TBasicElement<std::string> m_string;
};

TEST(Conversions, GoThroughTheGetterOfTheirOwnConstness) {
    Asked element;
    const Asked& constElement = element;
    EXPECT_TRUE(element.operator bool());
    EXPECT_EQ(element.asked, "boolean");
    EXPECT_TRUE(constElement.operator bool());
    EXPECT_EQ(element.asked, "const boolean");
    EXPECT_EQ(element.operator std::string&(), "abc");
    EXPECT_EQ(element.asked, "string");
    EXPECT_EQ(constElement.operator const std::string&(), "abc");
    EXPECT_EQ(element.asked, "const string");
    EXPECT_EQ(element.operator BasicNumber&().toString(), "5");
    EXPECT_EQ(element.asked, "number");
    EXPECT_EQ(constElement.operator const BasicNumber&().toString(), "5");
    EXPECT_EQ(element.asked, "const number");
    EXPECT_EQ(element.operator int(), 5);
    EXPECT_EQ(element.asked, "number");
    EXPECT_EQ(constElement.operator int(), 5);
    EXPECT_EQ(element.asked, "const number");
    EXPECT_EQ(element.operator double(), 5.0);
    EXPECT_EQ(element.asked, "const number");
}

}  // namespace
