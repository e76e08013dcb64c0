#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include <zo/Tessera/Exception.h>

#include "KindMatrix.h"
#include "support/HostileLocale.h"
#include "support/NumberOf.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

std::unique_ptr<Element> numberElement(const std::string& text) {
    return value(numberOf(text));
}

// `as` of every type that a kind holds goes through one of the typed getters.
class ElementKinds : public testing::TestWithParam<KindRow> {
protected:
    const std::unique_ptr<const Element> m_element{GetParam().make()};
};

/// The kind named as requested is that of `T`, as it is not always for a getter.
template <class T>
void expectRefused(const Element& element, const std::string& requested) {
    EXPECT_EQ(thrown<TypeException<EType>>([&] { element.as<T>(); }),
              "Json type mismatch! Requestet Json type: " + requested +
                  " Got Json type: " + element.typeName() + " Current element: \"\"");
    EXPECT_EQ(element.tryAs<T>(), std::nullopt);
}

TEST_P(ElementKinds, GiveABooleanOnlyIfTheyAreOne) {
    if (GetParam().isSelf(gtBoolean)) {
        EXPECT_FALSE(m_element->as<bool>());
        EXPECT_EQ(m_element->tryAs<bool>(), false);
    } else {
        expectRefused<bool>(*m_element, "etBoolean");
    }
}

TEST_P(ElementKinds, GiveAStringOnlyIfTheyAreOne) {
    if (GetParam().isSelf(gtString)) {
        EXPECT_EQ(m_element->as<std::string>(), "");
        EXPECT_EQ(m_element->tryAs<std::string>(), "");
    } else {
        expectRefused<std::string>(*m_element, "etString");
    }
}

TEST_P(ElementKinds, GiveANumberOnlyIfTheyAreOne) {
    if (GetParam().isSelf(gtNumber)) {
        EXPECT_EQ(m_element->as<int>(), 0);
        EXPECT_EQ(m_element->tryAs<double>(), 0.0);
    } else {
        const std::string mismatch = "etNumber";
        expectRefused<char>(*m_element, mismatch);
        expectRefused<int>(*m_element, mismatch);
        expectRefused<unsigned long long>(*m_element, mismatch);
        expectRefused<double>(*m_element, mismatch);
        expectRefused<long double>(*m_element, mismatch);
    }
}

INSTANTIATE_TEST_SUITE_P(ElementAs, ElementKinds, testing::ValuesIn(k_kindRows), k_rowName);

TEST(ElementAs, GivesTheScalarsOfADocument) {
    const std::unique_ptr<const Element> root =
        parsed(R"({"on":true,"name":"Ada","list":[-0.5,1e3,0,9223372036854775807]})");
    EXPECT_TRUE(root->get("on").as<bool>());
    EXPECT_EQ(root->get("name").as<std::string>(), "Ada");
    EXPECT_EQ(root->get("list[0]").as<double>(), -0.5);
    EXPECT_EQ(root->get("list[1]").as<unsigned short>(), 1000);
    EXPECT_EQ(root->get("list[2]").as<float>(), 0.0F);
    EXPECT_EQ(root->get("list[3]").as<long long>(), 9223372036854775807LL);
}

TEST(ElementAs, GivesANumberAsEachType) {
    const std::unique_ptr<const Element> element = numberElement("65");
    EXPECT_EQ(element->as<char>(), 'A');
    EXPECT_EQ(element->as<signed char>(), 65);
    EXPECT_EQ(element->as<unsigned char>(), 65);
    EXPECT_EQ(element->as<wchar_t>(), L'A');
    EXPECT_EQ(element->as<char16_t>(), u'A');
    EXPECT_EQ(element->as<char32_t>(), U'A');
    EXPECT_EQ(element->as<short>(), 65);
    EXPECT_EQ(element->as<unsigned short>(), 65);
    EXPECT_EQ(element->as<int>(), 65);
    EXPECT_EQ(element->as<unsigned int>(), 65U);
    EXPECT_EQ(element->as<long>(), 65L);
    EXPECT_EQ(element->as<unsigned long>(), 65UL);
    EXPECT_EQ(element->as<long long>(), 65LL);
    EXPECT_EQ(element->as<unsigned long long>(), 65ULL);
    EXPECT_EQ(element->as<float>(), 65.0F);
    EXPECT_EQ(element->as<double>(), 65.0);
    EXPECT_EQ(element->as<long double>(), 65.0L);
}

TEST(ElementAs, RefusesANumberThatDoesNotFit) {
    const std::unique_ptr<const Element> element = numberElement("1.5");
    EXPECT_EQ((thrown<ValueOutOfRange<BasicNumber, int>>([&] { element->as<int>(); })),
              "Value out of range! Value: 1.5 Min: -2147483648 Max: 2147483647");
    EXPECT_EQ(element->tryAs<int>(), std::nullopt);
    EXPECT_EQ(element->tryAs<double>(), 1.5);
    EXPECT_EQ(numberElement("256")->tryAs<unsigned char>(), std::nullopt);
    EXPECT_EQ(numberElement("255")->tryAs<unsigned char>(), 255);
    EXPECT_EQ(numberElement("1e400")->tryAs<double>(), std::nullopt);
}

TEST(ElementAs, NamesThePathOfAnElementOfAnotherKind) {
    const std::unique_ptr<const Element> root = parsed(R"({"list":[{"n":"12"}]})");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { root->get("list[0].n").as<int>(); }),
              "Json type mismatch! Requestet Json type: etNumber Got Json type: etString "
              "Current element: \"list[0].n\"");
}

TEST(ElementAs, FitsWithValueOr) {
    const std::unique_ptr<const Element> root = parsed(R"({"width":800,"height":"tall"})");
    EXPECT_EQ(root->get("width").tryAs<int>().value_or(640), 800);
    EXPECT_EQ(root->get("height").tryAs<int>().value_or(480), 480);
}

TEST(ElementAs, LeavesTheElementAsItWas) {
    const std::unique_ptr<const Element> element = numberElement("12345678901234567890");
    EXPECT_EQ(element->as<unsigned long long>(), 12345678901234567890ULL);
    EXPECT_EQ(element->tryAs<long long>(), std::nullopt);
    const BasicNumber& number = *element;
    EXPECT_THROW(number.type(), Exception);  // as a text does whose binary form was never asked for
}

TEST(ElementAs, ReadsWhatTheOlderConversionsRefuse) {
    const std::unique_ptr<const Element> zero = value(0);
    EXPECT_THROW(static_cast<void>(static_cast<double>(*zero)), Exception);
    EXPECT_THROW(static_cast<void>(static_cast<unsigned int>(*zero)), Exception);
    EXPECT_EQ(zero->as<double>(), 0.0);
    EXPECT_EQ(zero->as<unsigned int>(), 0U);
}

TEST(ElementAs, GivesACopyOfAString) {
    const std::unique_ptr<Element> element = value("before");
    const std::string copy = element->as<std::string>();
    element->setStringValue("after");
    EXPECT_EQ(copy, "before");
    static_assert(!std::is_reference_v<decltype(element->as<std::string>())>);
}

TEST(ExactValue, IsANumberThatReadsBack) {
    for (const double number : {0.0, -0.0, 0.1, 1.0 / 3, 1234567.0, -1e300, 5e-324}) {
        const std::unique_ptr<const Element> element = exactValue(number);
        EXPECT_EQ(element->type(), etNumber);
        EXPECT_EQ(element->as<double>(), number);
        EXPECT_EQ(std::signbit(element->as<double>()), std::signbit(number));
    }
}

TEST(ExactValue, KeepsEveryDigitInItsText) {
    const std::unique_ptr<const Element> element = exactValue(1234567.0);
    const BasicNumber& number = *element;
    EXPECT_EQ(number.toString(), "1234567");
}

TEST(ExactValue, IsDetached) {
    const std::unique_ptr<const Element> element = exactValue(0.5);
    EXPECT_EQ(element->parent(), nullptr);
    EXPECT_EQ(element->key(), "");
    EXPECT_EQ(element->index(), Path::k_noIndex);
}

TEST(ExactValue, RefusesANaNAndAnInfinity) {
    EXPECT_EQ(thrown<Exception>([] { exactValue(std::nan("")); }), "Number must be finite!");
    EXPECT_EQ(thrown<Exception>([] { exactValue(-HUGE_VAL); }), "Number must be finite!");
}

TEST(ExactValue, HasAPointUnderAHostileLocale) {
    const HostileLocale locale;
    const std::unique_ptr<const Element> element = exactValue(1234567.5);
    const BasicNumber& number = *element;
    EXPECT_EQ(number.toString(), "1234567.5");
    EXPECT_EQ(element->as<double>(), 1234567.5);
}

}  // namespace
