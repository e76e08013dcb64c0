// This program is built with hidden symbols, as an application may be: each exception that the
// library throws must arrive here by its own type, and its dynamic type must be known here.

#include <gtest/gtest.h>

#include <sstream>

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

/// Whether `action` throws an `Expected`, both as a handler sees it and as `dynamic_cast` does.
template <class Expected, class Action>
bool arrivesAs(const Action& action) {
    try {
        action();
    } catch (const Expected&) {
        try {
            action();
        } catch (const zo::Exception& base) {
            return dynamic_cast<const Expected*>(&base) != nullptr &&
                   typeid(base) == typeid(Expected);
        }
    } catch (...) {
        return false;
    }
    return false;
}

template <class T>
void convertTooLarge() {
    BasicNumber number;
    number.set(1e300);
    T out = 0;
    number.getValue(out);
}

template <class T>
void convertTooSmall() {
    BasicNumber number;
    number.set(-1.0);
    T out = 0;
    number.getValue(out);
}

}  // namespace

TEST(LibraryEdge, PassesTheBaseException) {
    EXPECT_TRUE(arrivesAs<Exception>([] { Element::createNull(nullptr); }));
}

TEST(LibraryEdge, PassesTypeMismatches) {
    EXPECT_TRUE(arrivesAs<TypeException<EType>>([] { value("text")->getNumberValue(); }));
}

TEST(LibraryEdge, PassesParseErrors) {
    EXPECT_TRUE(arrivesAs<ParseException>([] {
        Dom document;
        std::istringstream in("[1,]");
        in >> document;
    }));
}

TEST(LibraryEdge, PassesRunTimeErrorsOfTheCoreLibrary) {
    EXPECT_TRUE(arrivesAs<zo::RuntimeError>([] { BasicNumber::compare(1LL, "no number"); }));
}

TEST(LibraryEdge, PassesTextsOutOfRange) {
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<std::string, std::string>>([] {
        BasicNumber number;
        number.set("1e400");
        number.type();
    })));
}

TEST(LibraryEdge, PassesNumbersOutOfTheRangeOfEachType) {
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, char>>(convertTooLarge<char>)));
    EXPECT_TRUE(
        (arrivesAs<ValueOutOfRange<BasicNumber, unsigned char>>(convertTooLarge<unsigned char>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, short>>(convertTooLarge<short>)));
    EXPECT_TRUE(
        (arrivesAs<ValueOutOfRange<BasicNumber, unsigned short>>(convertTooLarge<unsigned short>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, int>>(convertTooLarge<int>)));
    EXPECT_TRUE(
        (arrivesAs<ValueOutOfRange<BasicNumber, unsigned int>>(convertTooLarge<unsigned int>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, long>>(convertTooLarge<long>)));
    EXPECT_TRUE(
        (arrivesAs<ValueOutOfRange<BasicNumber, unsigned long>>(convertTooLarge<unsigned long>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, long long>>(convertTooLarge<long long>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, unsigned long long>>(
        convertTooLarge<unsigned long long>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, float>>(convertTooSmall<float>)));
    EXPECT_TRUE((arrivesAs<ValueOutOfRange<BasicNumber, double>>(convertTooSmall<double>)));
}

TEST(LibraryEdge, PassesTheKindsOfElements) {
    const std::unique_ptr<Element> list = array();
    EXPECT_NE(dynamic_cast<Array*>(list.get()), nullptr);
    EXPECT_EQ(dynamic_cast<Object*>(list.get()), nullptr);
    EXPECT_NE(dynamic_cast<TBasicElement<BasicNumber>*>(value(1).get()), nullptr);
}
