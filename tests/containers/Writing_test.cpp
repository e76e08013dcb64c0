#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

#include <iomanip>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "Witness.h"

using namespace zo::Tessera;

namespace {

std::string written(const Element& element) {
    std::ostringstream out;
    EXPECT_EQ(&element.writeTo(out), &out);
    return out.str();
}

std::wstring widelyWritten(const Element& element) {
    std::wostringstream out;
    EXPECT_EQ(&element.writeTo(out), &out);
    return out.str();
}

std::string address(const Element* element) {
    std::ostringstream out;
    out << static_cast<const void*>(element);
    return out.str();
}

std::wstring wideAddress(const Element* element) {
    std::wostringstream out;
    out << static_cast<const void*>(element);
    return out.str();
}

TEST(ArrayWriting, OfNoChildrenIsTwoBlanksBetweenBrackets) {
    EXPECT_EQ(written(Array()), "[  ]");
    EXPECT_EQ(widelyWritten(Array()), L"[  ]");
}

// The comma after the last child belongs to the form that callers know.
TEST(ArrayWriting, ShowsTheAddressesEachFollowedByAComma) {
    Array array;
    const Element* const first = Element::createString("not shown", &array);
    EXPECT_EQ(written(array), "[ " + address(first) + ", ]");
    const Element* const second = Element::createArray(&array);
    EXPECT_EQ(written(array), "[ " + address(first) + "," + address(second) + ", ]");
    EXPECT_EQ(widelyWritten(array),
              L"[ " + wideAddress(first) + L"," + wideAddress(second) + L", ]");
}

TEST(ArrayWriting, DoesNotWriteTheChildrenThemselves) {
    std::string log;
    Array array;
    array.push_back(new Witness("a", log));
    written(array);
    EXPECT_EQ(log, "");
}

TEST(ObjectWriting, OfNoMembersIsTwoBlanksBetweenBraces) {
    EXPECT_EQ(written(Object()), "{  }");
    EXPECT_EQ(widelyWritten(Object()), L"{  }");
}

TEST(ObjectWriting, ShowsEachMemberInOrderFollowedByAComma) {
    Object object;
    Element::createNull(&object, "b");
    Element::createString("a\"b", &object, "a");
    Element::createBoolean(true, &object, "c");
    Element::create(etNumber, &object, "d");
    EXPECT_EQ(written(object), "{ b : null,a : a\"b,c : true,d : 0, }");
    EXPECT_EQ(widelyWritten(object), L"{ b : null,a : a\"b,c : true,d : 0, }");
}

TEST(ObjectWriting, GoesIntoNestedObjectsAndComesBack) {
    Object root;
    Element* const outer = Element::createObject(&root, "o");
    Element::createObject(outer, "empty");
    Element::createNull(outer, "n");
    Element::createBoolean(false, &root, "last");
    EXPECT_EQ(written(root), "{ o : { empty : {  },n : null, },last : false, }");
    EXPECT_EQ(widelyWritten(root), L"{ o : { empty : {  },n : null, },last : false, }");
}

TEST(ObjectWriting, WritesAMemberArrayAsArraysDo) {
    Object root;
    const Element* const item = Element::createNull(Element::createArray(&root, "a"));
    EXPECT_EQ(written(root), "{ a : [ " + address(item) + ", ], }");
    EXPECT_EQ(widelyWritten(root), L"{ a : [ " + wideAddress(item) + L", ], }");
}

TEST(ObjectWriting, NeitherQuotesNorEscapesAKey) {
    Object object;
    Element::createNull(&object, "a.\"b\\\n");
    Element::createNull(&object, "");
    EXPECT_EQ(written(object), "{ a.\"b\\\n : null, : null, }");
    EXPECT_EQ(widelyWritten(object), L"{ a.\"b\\\n : null, : null, }");
}

TEST(ObjectWriting, KeepsAKeysBytesAndConvertsThemForWideText) {
    Object object;
    Element::createString("\xC3\xA4", &object, "gr\xC3\xBC\xC3\x9F");
    Element::createNull(&object, "a\xFF");
    EXPECT_EQ(written(object), "{ gr\xC3\xBC\xC3\x9F : \xC3\xA4,a\xFF : null, }");
    EXPECT_EQ(widelyWritten(object), L"{ gr\u00FC\u00DF : \u00E4,a\uFFFD : null, }");
}

TEST(ObjectWriting, WritesUnattachedCopiesUnderTheirKeys) {
    Object root;
    Element::createNull(Element::createObject(&root, "o"), "n");
    EXPECT_EQ(written(Object(root)), "{ o : { n : null, }, }");
}

TEST(ObjectWriting, AsksTheMembersOwnWriteTo) {
    std::string log;
    Object root;
    Element::createObject(&root, "o")->getObjectValue().insert("w", new Witness("x", log));
    EXPECT_EQ(written(root), "{ o : { w : x, }, }");
    EXPECT_EQ(log, "write x;");
}

TEST(ContainerWriting, GivesAWidthToTheFirstPieceAlone) {
    std::ostringstream out;
    out << std::setw(4);
    Array().writeTo(out);
    out << std::setw(4);
    Object().writeTo(out);
    EXPECT_EQ(out.str(), "  [  ]  {  }");
}

}  // namespace
