#include <zo/Tessera/Element.h>

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>

#include "KindMatrix.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

/// The attaching constructors of one class.
struct Maker {
    const char* name;
    Element* (*byKey)(Element* parent, const std::string& key);
    Element* (*byPosition)(Element* parent);
    const char* line;  // as dumped, without its place
};

const Maker k_makers[] = {
    {"Base",
     [](Element* p, const std::string& k) -> Element* { return new BareElement(etEmpty, p, k); },
     [](Element* p) -> Element* { return new BareElement(etEmpty, p); }, "etEmpty"},
    {"Null", [](Element* p, const std::string& k) -> Element* { return new Null(p, k); },
     [](Element* p) -> Element* { return new Null(p); }, "etNull"},
    {"Boolean",
     [](Element* p, const std::string& k) -> Element* {
         return new TBasicElement<bool>(true, p, k);
     },
     [](Element* p) -> Element* { return new TBasicElement<bool>(true, p); }, "etBoolean true"},
    {"Number",
     [](Element* p, const std::string& k) -> Element* {
         return new TBasicElement<BasicNumber>(numberOf("1.50"), p, k);
     },
     [](Element* p) -> Element* { return new TBasicElement<BasicNumber>(numberOf("1.50"), p); },
     "etNumber 1.50"},
    {"String",
     [](Element* p, const std::string& k) -> Element* {
         return new TBasicElement<std::string>("text", p, k);
     },
     [](Element* p) -> Element* { return new TBasicElement<std::string>("text", p); },
     "etString \"text\""},
    {"Object", [](Element* p, const std::string& k) -> Element* { return new Object(p, k); },
     [](Element* p) -> Element* { return new Object(p); }, "etObject"},
    {"Array", [](Element* p, const std::string& k) -> Element* { return new Array(p, k); },
     [](Element* p) -> Element* { return new Array(p); }, "etArray"},
};

class AttachingConstructors : public testing::TestWithParam<Maker> {};

TEST_P(AttachingConstructors, ByKeyPutTheElementLastAsAMember) {
    Object parent;
    Element::createNull(&parent, "z");
    const Element* const made = GetParam().byKey(&parent, "a.b");
    EXPECT_EQ(&parent.at("a.b"), made);
    EXPECT_EQ(dump(parent),
              "etObject key=\"\" index=- parent=none\n"
              "  etNull key=\"z\" index=- parent=right\n  " +
                  std::string(GetParam().line) + " key=\"a.b\" index=- parent=right\n");
}

TEST_P(AttachingConstructors, ByPositionAppendTheElement) {
    Array parent;
    Element::createNull(&parent);
    const Element* const made = GetParam().byPosition(&parent);
    EXPECT_EQ(&parent.at(1), made);
    EXPECT_EQ(dump(parent),
              "etArray key=\"\" index=- parent=none\n"
              "  etNull key=\"[0]\" index=0 parent=right\n  " +
                  std::string(GetParam().line) + " key=\"[1]\" index=1 parent=right\n");
}

TEST_P(AttachingConstructors, AcceptAnEmptyKey) {
    Object parent;
    const Element* const made = GetParam().byKey(&parent, "");
    EXPECT_EQ(&parent.at(""), made);
    EXPECT_EQ(made->parent(), &parent);
}

TEST_P(AttachingConstructors, RefuseANullParent) {
    EXPECT_EQ(thrown<Exception>([] { GetParam().byKey(nullptr, "a"); }),
              "Null pointer exception: parent may not be null");
    EXPECT_EQ(thrown<Exception>([] { GetParam().byPosition(nullptr); }),
              "Null pointer exception: parent may not be null");
}

TEST_P(AttachingConstructors, ByKeyRefuseAParentThatIsNoObject) {
    for (const KindRow& row : k_kindRows) {
        if (row.isSelf(gtObject)) {
            continue;
        }
        SCOPED_TRACE(row.name);
        Object root;
        Element* const parent = row.make();
        root.insert("p", parent);
        const std::string before = dump(root);
        EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().byKey(parent, "a"); }),
                  row.mismatch(gtObject, "p"));
        EXPECT_EQ(dump(root), before);
    }
}

TEST_P(AttachingConstructors, ByPositionRefuseAParentThatIsNoArray) {
    for (const KindRow& row : k_kindRows) {
        if (row.isSelf(gtArray)) {
            continue;
        }
        SCOPED_TRACE(row.name);
        Object root;
        Element* const parent = row.make();
        root.insert("p", parent);
        const std::string before = dump(root);
        EXPECT_EQ(thrown<TypeException<EType>>([&] { GetParam().byPosition(parent); }),
                  row.mismatch(gtArray, "p"));
        EXPECT_EQ(dump(root), before);
    }
}

// The constructor sets the parent before the object replaces the member without attaching it.
TEST_P(AttachingConstructors, ReplaceAMemberInItsPlaceWithTheParentSetAndTheKeyEmpty) {
    Object parent;
    Element::createString("old", &parent, "a");
    Element::createNull(&parent, "z");
    const Element* const made = GetParam().byKey(&parent, "a");
    EXPECT_EQ(&parent.at("a"), made);
    EXPECT_EQ(made->parent(), &parent);
    EXPECT_EQ(made->key(), "");
    EXPECT_EQ(made->index(), Path::k_noIndex);
    EXPECT_EQ(dump(parent), "etObject key=\"\" index=- parent=none\n  " +
                                std::string(GetParam().line) +
                                " key=\"\" index=- parent=right held as \"a\"\n"
                                "  etNull key=\"z\" index=- parent=right\n");
}

INSTANTIATE_TEST_SUITE_P(Elements, AttachingConstructors, testing::ValuesIn(k_makers), k_rowName);

TEST(AttachingConstructors, TakeAValueThatLivesInTheMemberTheyReplace) {
    Object parent;
    const char* const longText = "a text that is too long to be kept inside the string";
    const Element* const text = Element::createString(longText, &parent, "s");
    Element::createString(static_cast<const std::string&>(*text), &parent, "s");
    EXPECT_EQ(parent.at("s").getStringValue().value(), longText);
    const Element* const number = Element::createNumber(
        numberOf("0.1000000000000000000000000000000000000000001"), &parent, "n");
    Element::createNumber(static_cast<const BasicNumber&>(*number), &parent, "n");
    EXPECT_EQ(parent.at("n").getNumberValue().value().toString(),
              "0.1000000000000000000000000000000000000000001");
}

TEST(AttachingConstructors, TakeAKeyThatLivesInTheMemberTheyReplace) {
    Object parent;
    const std::string longKey = "a key that is too long to be kept inside the string";
    const Element* const text = Element::createString(longKey, &parent, longKey);
    Element::createNull(&parent, static_cast<const std::string&>(*text));
    EXPECT_EQ(parent.at(longKey).type(), etNull);
    Element::createBoolean(true, &parent, parent.begin()->first);
    EXPECT_EQ(parent.at(longKey).type(), etBoolean);
    EXPECT_EQ(parent.size(), 1U);
}

}  // namespace
