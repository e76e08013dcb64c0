#include <zo/Tessera/Element.h>

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/TBasicElement.h>

#include "support/NumberOf.h"
#include "support/dump.h"

using namespace zo::Tessera;

namespace {

using Elements = std::vector<std::unique_ptr<Element>>;

void addNumber(Elements& list, const char* text) {
    list.push_back(value(numberOf(text)));
}

void addString(Elements& list, const std::string& text) {
    list.push_back(value(text));
}

Element* addContainer(Elements& list, EType type) {
    list.emplace_back(Element::create(type));
    return list.back().get();
}

/// Elements in strictly rising order.
Elements risingElements() {
    Elements list;
    list.push_back(value());
    list.push_back(value(false));
    list.push_back(value(true));
    addNumber(list, "-92233720368547758");
    addNumber(list, "-1.5");
    addNumber(list, "-1");
    addNumber(list, "0");
    addNumber(list, "0.5");
    addNumber(list, "2");
    addNumber(list, "10");  // as texts these two would sort the other way round
    addNumber(list, "1e300");
    addString(list, "");
    addString(list, std::string(1, '\0'));
    addString(list, "10");
    addString(list, "A");
    addString(list, "a");
    addString(list, std::string("a\0", 2));
    addString(list, std::string("a\0b", 3));
    addString(list, "a\x01");
    addString(list, "ab");
    addString(list, "abc");
    addString(list, "b");
    addString(list, "\x7F");
    addString(list, "\x80");  // bytes count as unsigned
    addString(list, "\xFF");
    addString(list, "\xFF\x01");
    addContainer(list, etObject);
    Element::createNull(addContainer(list, etObject), "z");
    Element::createString("s", addContainer(list, etObject), "a");
    Element* object = addContainer(list, etObject);
    Element::createNull(object, "a");
    Element::createNull(object, "b");
    addContainer(list, etArray);
    Element::createNull(addContainer(list, etArray));
    Element::createArray(addContainer(list, etArray));
    Element* array = addContainer(list, etArray);
    Element::createNull(array);
    Element::createNull(array);
    array = addContainer(list, etArray);
    Element::createNull(array);
    Element::createBoolean(false, array);
    return list;
}

TEST(Compare, OrdersElementsTotally) {
    const Elements list = risingElements();
    for (size_t i = 0; i < list.size(); ++i) {
        for (size_t j = 0; j < list.size(); ++j) {
            const int expected = i < j ? -1 : i > j ? 1 : 0;
            EXPECT_EQ(list[i]->compare(*list[j]), expected) << "of\n"
                                                            << dump(*list[i]) << "with\n"
                                                            << dump(*list[j]);
        }
    }
}

TEST(Compare, FindsAnEqualElementEqualBothWays) {
    for (const auto& element : risingElements()) {
        const std::unique_ptr<const Element> clone(element->clone());
        EXPECT_EQ(element->compare(*clone), 0) << dump(*element);
        EXPECT_EQ(clone->compare(*element), 0) << dump(*element);
    }
}

TEST(Compare, DoesNotDependOnThePlaceInATree) {
    Object object;
    Array array;
    const Element* const member = Element::createString("s", &object, "a");
    const Element* const item = Element::createString("s", &array);
    EXPECT_EQ(member->compare(*item), 0);
}

TEST(Compare, FindsNumbersEqualAcrossTheirForms) {
    EXPECT_EQ(value(5)->compare(*value(numberOf("5.0"))), 0);
    EXPECT_EQ(value(5)->compare(*value(5U)), 0);
    EXPECT_EQ(value(numberOf("1e1"))->compare(*value(10.0)), 0);
}

TEST(Compare, ReducesEveryResultToOneStep) {
    EXPECT_EQ(value("z")->compare(*value("a")), 1);
    EXPECT_EQ(value("a")->compare(*value("z")), -1);
    EXPECT_EQ(value("aaaaaaaa")->compare(*value("a")), 1);
    EXPECT_EQ(array()->compare(*value()), 1);
    EXPECT_EQ(value()->compare(*array()), -1);
}

/// A value whose getter must not be asked.
template <class T>
class Guarded : public TBasicElement<T> {
public:
    using TBasicElement<T>::TBasicElement;
    using TBasicElement<T>::getBooleanValue;
    using TBasicElement<T>::getNumberValue;
    using TBasicElement<T>::getStringValue;
    TBasicElement<bool>& getBooleanValue() override { throw 1; }
    TBasicElement<BasicNumber>& getNumberValue() override { throw 1; }
    TBasicElement<std::string>& getStringValue() override { throw 1; }
};

TEST(Compare, ReadsTheOtherValueWithoutItsGetters) {
    EXPECT_EQ(TBasicElement<bool>(true).compare(Guarded<bool>(false)), 1);
    EXPECT_EQ(TBasicElement<BasicNumber>(numberOf(1)).compare(Guarded<BasicNumber>(numberOf(2))),
              -1);
    EXPECT_EQ(TBasicElement<std::string>("a").compare(Guarded<std::string>("a")), 0);
}

}  // namespace
