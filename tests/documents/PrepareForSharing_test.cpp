#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Exception.h>

#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/inPlace.h"
#include "support/parsed.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

const BasicNumber& numberAt(const Owner& root, const char* path) {
    return root->get(path);
}

TEST(PrepareForSharing, LeavesTheTreeAsItIs) {
    const char* const json = R"({"a": [1.50, -0, {"b": 1e3}], "n": null, "s": "1", "t": true})";
    const Owner root = parsed(json);
    root->prepareForSharing();
    EXPECT_EQ(dump(*root), inPlace(json));
}

// The exception is thrown where the binary form of the text is derived, and not again.
TEST(PrepareForSharing, DerivesTheBinaryFormOfEveryNumber) {
    const Owner root = parsed(R"({"a": [1, {"b": 99999999999999999999}], "c": 1e999})");
    root->prepareForSharing();
    EXPECT_EQ(numberAt(root, "a[1].b").type(), BasicNumber::ebULongLong);
    EXPECT_EQ(numberAt(root, "c").type(), BasicNumber::ebDouble);
    EXPECT_EQ(numberAt(root, "a[1].b").toString(), "99999999999999999999");
    EXPECT_EQ(numberAt(root, "c").toString(), "1e999");
}

// Such a number has neither form, and no text until it has a binary form.
TEST(PrepareForSharing, GivesANumberSetFromNothingBothForms) {
    const Owner list = array();
    Element::createNumber(numberOf(""), list.get());
    ASSERT_EQ(numberAt(list, "[0]").toString(), "");
    list->prepareForSharing();
    EXPECT_EQ(numberAt(list, "[0]").toString(), "0");
}

TEST(PrepareForSharing, IsForScalarsToo) {
    const Owner number = value(numberOf("99999999999999999999"));
    number->prepareForSharing();
    const BasicNumber& prepared = *number;
    EXPECT_EQ(prepared.type(), BasicNumber::ebULongLong);
    const Owner text = value("x");
    text->prepareForSharing();
    EXPECT_EQ(dump(*text), inPlace(R"("x")"));
}

TEST(PrepareForSharing, MayBeAskedForAgain) {
    const Owner root = parsed("[99999999999999999999, 1]");
    root->prepareForSharing();
    root->prepareForSharing();
    EXPECT_EQ(dump(*root), inPlace("[99999999999999999999, 1]"));
}

}  // namespace
