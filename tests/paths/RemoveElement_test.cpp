#include <zo/Tessera/Element.h>

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>

#include "paths/RemoveForms.h"
#include "support/classicText.h"
#include "support/dump.h"
#include "support/parsed.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

using Owner = std::unique_ptr<Element>;

static_assert(std::is_void_v<decltype(std::declval<Element&>().removeElement(
                  std::declval<const Element&>(), "", ""))>);
static_assert(std::is_void_v<decltype(std::declval<Element&>().removeElement(
                  std::declval<const Owner&>(), "", ""))>);

class RemoveElement : public testing::TestWithParam<RemoveForm> {
protected:
    static void remove(Element& asked, const Owner& pattern, const Path& keyPath = "",
                       const Path& arrayPath = "") {
        GetParam().remove(asked, pattern, keyPath, arrayPath);
    }
};

INSTANTIATE_TEST_SUITE_P(Element, RemoveElement, testing::ValuesIn(k_removeForms), k_rowName);

struct Removal {
    const char* name;
    const char* json;  // an array, from which "x" is removed
    const char* items;
};

class RemoveElementRow : public testing::TestWithParam<std::tuple<RemoveForm, Removal>> {};

// Callers rely on the stored index running one too high for each removal before the item.
TEST_P(RemoveElementRow, RaisesTheIndexOfTheItemsBehindEachRemoved) {
    const auto& [form, row] = GetParam();
    const Owner list = parsed(row.json);
    form.remove(*list, value("x"), "", "");
    EXPECT_EQ(itemsOf(*list), row.items);
}

INSTANTIATE_TEST_SUITE_P(
    Element, RemoveElementRow,
    testing::Combine(testing::ValuesIn(k_removeForms),
                     testing::Values(Removal{"First", R"(["x", "a", "b"])",
                                             "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
                                             "  etString \"b\" key=\"[3]\" index=3 parent=right\n"},
                                     Removal{"Middle", R"(["a", "x", "b"])",
                                             "  etString \"a\" key=\"[0]\" index=0 parent=right\n"
                                             "  etString \"b\" key=\"[3]\" index=3 parent=right\n"},
                                     Removal{"Last", R"(["a", "b", "x"])",
                                             "  etString \"a\" key=\"[0]\" index=0 parent=right\n"
                                             "  etString \"b\" key=\"[1]\" index=1 parent=right\n"},
                                     Removal{"Adjacent", R"(["a", "x", "x", "b", "c"])",
                                             "  etString \"a\" key=\"[0]\" index=0 parent=right\n"
                                             "  etString \"b\" key=\"[5]\" index=5 parent=right\n"
                                             "  etString \"c\" key=\"[6]\" index=6 parent=right\n"},
                                     Removal{"Alternating", R"(["x", "a", "x", "b", "x", "c"])",
                                             "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
                                             "  etString \"b\" key=\"[5]\" index=5 parent=right\n"
                                             "  etString \"c\" key=\"[8]\" index=8 parent=right\n"},
                                     Removal{"AllButTheLast", R"(["x", "x", "x", "a"])",
                                             "  etString \"a\" key=\"[6]\" index=6 parent=right\n"},
                                     Removal{"All", R"(["x", "x", "x"])", ""},
                                     Removal{"TheOnly", R"(["x"])", ""},
                                     Removal{"NoneOfNone", "[]", ""},
                                     Removal{"None", R"(["a", "y"])",
                                             "  etString \"a\" key=\"[0]\" index=0 parent=right\n"
                                             "  etString \"y\" key=\"[1]\" index=1 parent=right\n"},
                                     Removal{"NoneOfAnotherKind", R"([["x"], 1])",
                                             "  etArray key=\"[0]\" index=0 parent=right\n"
                                             "    etString \"x\" key=\"[0]\" index=0 parent=right\n"
                                             "  etNumber 1 key=\"[1]\" index=1 parent=right\n"})),
    [](const auto& row) {
        return std::string(std::get<0>(row.param).name) + std::get<1>(row.param).name;
    });

TEST_P(RemoveElement, LeavesTheOthersInOrderAndWithinReach) {
    const Owner list = parsed(R"(["x", "a", "x", "b"])");
    Element* const a = &list->at(1);
    Element* const b = &list->at(3);
    remove(*list, value("x"));
    EXPECT_EQ(list->size(), 2U);
    EXPECT_EQ(&list->at(0), a);
    EXPECT_EQ(&list->at(1), b);
    EXPECT_EQ(&list->get("[1]"), b);
    EXPECT_FALSE(list->pathExists("[2]"));
}

// An appended item is placed by their number, so it may share the index of one before it.
TEST_P(RemoveElement, DoesNotChangeHowItemsAreAppended) {
    const Owner list = parsed(R"(["x", "a", "b"])");
    remove(*list, value("x"));
    Element* const added = Element::createNull(list.get());
    EXPECT_EQ(itemsOf(*list),
              "  etString \"a\" key=\"[2]\" index=2 parent=right\n"
              "  etString \"b\" key=\"[3]\" index=3 parent=right\n"
              "  etNull key=\"[2]\" index=2 parent=right\n");
    EXPECT_EQ(&list->at(2), added);
}

TEST_P(RemoveElement, GoesOnFromTheStoredIndexesTheNextTime) {
    const Owner list = parsed(R"(["x", "y", "a"])");
    remove(*list, value("x"));
    remove(*list, value("y"));
    EXPECT_EQ(itemsOf(*list), "  etString \"a\" key=\"[4]\" index=4 parent=right\n");
}

TEST_P(RemoveElement, ReachesTheArrayAndTheValueByTheirPaths) {
    const Owner root = parsed(R"({"a": [[{"id": 1}, {"v": [{"id": 2}]}, 2, {"id": 2}, null]]})");
    remove(*root, value(2), "id", "a[0]");
    remove(*root, value(2), "v[0].id", "a[0]");
    EXPECT_EQ(dump(*root),
              "etObject key=\"\" index=- parent=none\n"
              "  etArray key=\"a\" index=- parent=right\n"
              "    etArray key=\"[0]\" index=0 parent=right\n"
              "      etObject key=\"[0]\" index=0 parent=right\n"
              "        etNumber 1 key=\"id\" index=- parent=right\n"
              "      etNumber 2 key=\"[3]\" index=3 parent=right\n"
              "      etNull key=\"[6]\" index=6 parent=right\n");
}

TEST_P(RemoveElement, RemovesNothingForAKeyPathThatReachesNothing) {
    const Owner list = parsed(R"([{"id": 1}, [1]])");
    const std::string before = dump(*list);
    for (const char* keyPath : {"x", "id.", "id..x", "[", "[*]", "id]"}) {
        SCOPED_TRACE(keyPath);
        remove(*list, value(1), keyPath);
        EXPECT_EQ(dump(*list), before);
    }
}

TEST_P(RemoveElement, AttachesTheUnattachedItemsBehindTheFirstRemoved) {
    const Owner source = parsed(R"(["a", "x", ["b"], "c", "x", "d"])");
    const Owner copy(source->clone());
    remove(*copy, value("x"));
    // Their index counts on from all bits set, that is from -1.
    EXPECT_EQ(itemsOf(*copy),
              "  etString \"a\" key=\"\" index=- parent=none\n"
              "  etArray key=\"[0]\" index=0 parent=right\n"
              "    etString \"b\" key=\"\" index=- parent=none\n"
              "  etString \"c\" key=\"[0]\" index=0 parent=right\n"
              "  etString \"d\" key=\"[1]\" index=1 parent=right\n");
}

/// An array that says to be of another kind when the test wants: an object's children show their
/// stored keys.
class ArrayOfAnyKind : public Array {
public:
    EType type() const override { return kind; }
    EType kind = etArray;
};

TEST_P(RemoveElement, TakesAnItemBehindFromItsFormerParentAndClearsItsKey) {
    Object former;
    Element* const item = Element::createNull(&former, "k");
    ArrayOfAnyKind list;
    Element::createString("x", &list);
    Element::createNull(&list);
    std::swap(former.find("k")->second, *std::next(list.begin()));
    ASSERT_EQ(item->parent(), &former);
    ASSERT_EQ(item->key(), "k");
    remove(list, value("x"));
    EXPECT_EQ(item->parent(), &list);
    EXPECT_EQ(item->index(), 0U);
    list.kind = etObject;
    EXPECT_EQ(item->key(), "");
}

// Only items are skipped: that there is no array is not swallowed.
TEST_P(RemoveElement, ThrowsWhereThereIsNoArrayAndChangesNothing) {
    const Owner root = parsed(R"({"a": [1], "n": null, "s": "x"})");
    const std::string before = dump(*root);
    const Owner pattern = value(1);
    std::string address;
    const std::string text = thrown<PathNotFound>([&] {
        try {
            remove(*root, pattern, "", "a[1]");
        } catch (const PathNotFound& exception) {
            address = classicText(exception.elementPath());
            throw;
        }
    });
    EXPECT_EQ(text, "Path \"a[1]\" not found! Key \"[1]\". Current element: \"" + address + "\"");
    EXPECT_EQ(thrown<ParseException>([&] { remove(*root, pattern, "", "a[*]"); }),
              "Index must be set!");
    EXPECT_EQ(thrown<ParseException>([&] { remove(*root, pattern, "", "a["); }),
              "Parse error at 1,1-1,2Unexpexced EOF in path at \"\" 1,2 parser state esArrayInit");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { remove(*root, pattern); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etObject "
              "Current element: \"\"");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { remove(*root, pattern, "", "n"); }),
              "Json type mismatch! Requestet Json type: etObject Got Json type: etNull "
              "Current element: \"n\"");
    EXPECT_EQ(thrown<TypeException<EType>>([&] { remove(root->at("s"), pattern); }),
              "Json type mismatch! Requestet Json type: etArray Got Json type: etString "
              "Current element: \"s\"");
    EXPECT_EQ(dump(*root), before);
}

TEST(RemoveElementByOwner, RefusesAnEmptyOne) {
    const Owner list = parsed("[1]");
    EXPECT_EQ(thrown<Exception>([&] { list->removeElement(Owner(), "", ""); }),
              "Null pointer exception: pattern may not be null");
    EXPECT_EQ(list->size(), 1U);
}

}  // namespace
