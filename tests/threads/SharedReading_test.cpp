// Several threads read the same numbers without a lock. Run under ThreadSanitizer, which sees what
// no result shows.

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>

#include "support/NumberOf.h"
#include "support/classicText.h"
#include "support/parsed.h"
#include "support/thrown.h"
#include "threads/activities.h"
#include "threads/resultsOfThreads.h"

using namespace zo::Tessera;

namespace {

using TextOutOfRange = ValueOutOfRange<std::string, std::string>;

/// Exact conversions, which derive nothing.
std::string exactReadings(const BasicNumber& number) {
    return classicText(number.tryAs<int>().value_or(-1), ' ',
                       number.tryAs<unsigned long long>().value_or(7), ' ',
                       number.tryAs<float>().value_or(-1), ' ', number.tryAs<double>().value_or(-1),
                       ' ', number.tryAs<long double>().value_or(-1), ' ',
                       number.tryAs<std::string>().value_or("none"), ';');
}

/// What reads a number and derives a form of it where that is missing.
std::string derivingReadings(const BasicNumber& number) {
    std::ostringstream written;
    number.writeAt(written);
    return classicText(number.type(), ' ', number.toString(), ' ', written.str(), ' ',
                       number.toInt(), ' ', number.compare(2.0), ' ', number.compare(2LL), ' ',
                       static_cast<double>(number.toDecNumber()), ';');
}

constexpr char k_json[] =
    R"({"list":[{"n":-5},{"n":2.50},{"n":7}],"text":"x","none":null,"on":true,"big":1e3})";

/// A tree of numbers in each of their forms.
std::unique_ptr<Element> sharedTree() {
    std::unique_ptr<Element> root = parsed(k_json);
    Object& object = root->getObjectValue();
    object.insert("binary", value(0.5).release());
    object.insert("lossy", value(1234567.0).release());
    object.insert("exact", exactValue(1.0 / 3).release());
    object.insert("integer", value(-42).release());
    return root;
}

constexpr char k_numbers[] =
    "list[0].n: ebLongLong -5 -5 -5 -1 -1 -5;-5 7 -5 -5 -5 -5;\n"
    "list[1].n: ebDouble 2.50 2.50 2 1 1 2.5;-1 7 2.5 2.5 2.5 2.50;\n"
    "list[2].n: ebULongLong 7 7 7 1 1 7;7 7 7 7 7 7;\n"
    "big: ebDouble 1e3 1e3 1000 1 1 1000;1000 1000 1000 1000 1000 1e3;\n"
    "binary: ebDouble 0.5 0.5 0 -1 -1 0.5;-1 7 0.5 0.5 0.5 0.5;\n"
    "lossy: ebDouble 1.23457e+06 1.23457e+06 1234567 1 1 1.23457e+06;"
    "1234567 1234567 1.23457e+06 1.23457e+06 1.23457e+06 1234567;\n"
    "exact: ebDouble 0.3333333333333333 0.3333333333333333 0 -1 -1 0.333333;"
    "-1 7 0.333333 0.333333 0.333333 0.3333333333333333;\n"
    "integer: ebLongLong -42 -42 -42 -1 -1 -42;-42 7 -42 -42 -42 -42;\n";

std::string readNumbers(const Element& root) {
    std::string text;
    for (const char* const path :
         {"list[0].n", "list[1].n", "list[2].n", "big", "binary", "lossy", "exact", "integer"}) {
        const BasicNumber& number = root.get(path);
        text += std::string(path) + ": " + derivingReadings(number) + exactReadings(number) + '\n';
    }
    return text;
}

/// Looks up, compares, converts, copies and writes, without a change: first what is in "list".
/// @{
std::string readList(const Element& list) {
    const Element& second = list.get("[1].n");
    std::ostringstream diagnostic;
    second.writeTo(diagnostic);
    return classicText(
        compact(list), ' ', diagnostic.str(), ' ', second.path(nullptr), ' ',
        second.schemaPath(nullptr), ' ', static_cast<int>(list.get("[0].n")), ' ',
        static_cast<double>(second), ' ', static_cast<unsigned long>(list.get("[2].n")), ' ',
        second.compare(list.get("[0].n")), ' ',
        list.compare(*std::unique_ptr<Element>(list.clone())), ' ', list.pathExists("[3]"));
}

std::string readTree(const Element& root) {
    return classicText(readList(root.get("list")), ' ', root.at("text").as<std::string>(), ' ',
                       root.at("on").as<bool>(), ' ',
                       root.compare(*std::unique_ptr<Element>(root.clone())), ' ',
                       root.pathExists("list[3]"), ' ',
                       root.findElement(*value(7), "n", "list") == &root.get("list[2]"), ' ',
                       root.getObjectValue().find("none") != root.getObjectValue().end());
}
/// @}

constexpr char k_list[] = R"([{"n":-5},{"n":2.50},{"n":7}] 2.50 list[1].n )"
                          "meta.schema.properties.list.items.properties.n -5 2.5 7 1 0 0";
constexpr char k_restOfTree[] = " x 1 0 0 1 1";

template <class Work>
void expectOfEachThread(const std::string& expected, const Work& work) {
    EXPECT_EQ(resultsOfThreads([&] {
                  std::set<std::string> results;
                  for (int round = 0; round < 20; ++round) {
                      results.insert(work());
                  }
                  return results == std::set<std::string>{expected} ? "as expected"
                                                                    : *results.begin();
              }),
              std::set<std::string>{"as expected"});
}

}  // namespace

TEST(SharedNumbers, AreReadExactlyWithoutPreparation) {
    const std::vector<BasicNumber> numbers = {
        numberOf("1e3"), numberOf("0.25"), numberOf("12345678901234567890"),
        numberOf("abc"), numberOf(-42),    numberOf(42U),
        numberOf(0.5),   numberOf(1.0 / 3)};
    expectOfEachThread(
        "1000 1000 1000 1000 1000 1e3;-1 7 0.25 0.25 0.25 0.25;"
        "-1 12345678901234567890 1.23457e+19 1.23457e+19 1.23457e+19 12345678901234567890;"
        "-1 7 -1 -1 -1 abc;-42 7 -42 -42 -42 -42;42 42 42 42 42 42;-1 7 0.5 0.5 0.5 0.5;"
        "-1 7 0.333333 0.333333 0.333333 0.3333333333333333;",
        [&numbers] {
            std::string text;
            for (const BasicNumber& number : numbers) {
                text += exactReadings(number);
            }
            return text;
        });
    // Nobody has derived its binary form.
    EXPECT_THROW(numbers[2].type(), TextOutOfRange);
}

TEST(SharedNumbers, AreRefusedInEachThreadWithoutPreparation) {
    const BasicNumber number = numberOf("12345678901234567890");
    expectOfEachThread(
        "Value out of range! Value: 12345678901234567890 Min: -2147483648 Max: "
        "2147483647",
        [&number] {
            return thrown<ValueOutOfRange<BasicNumber, int>>([&number] { number.as<int>(); });
        });
}

TEST(SharedTree, IsReadExactlyWithoutPreparation) {
    const std::unique_ptr<const Element> root = sharedTree();
    expectOfEachThread("-5 2.5 7 1000 0.5 1234567 -42 x 1", [&root] {
        return classicText(
            root->get("list[0].n").as<int>(), ' ', root->get("list[1].n").as<double>(), ' ',
            root->get("list[2].n").as<unsigned short>(), ' ', root->get("big").as<long>(), ' ',
            root->get("binary").as<float>(), ' ', root->get("lossy").as<int>(), ' ',
            root->get("integer").tryAs<int>().value_or(0), ' ', root->get("text").as<std::string>(),
            ' ', root->get("on").tryAs<bool>().value_or(false));
    });
}

TEST(SharedTree, IsReadInEveryWayOncePrepared) {
    const std::unique_ptr<const Element> root = sharedTree();
    root->prepareForSharing();
    expectOfEachThread(std::string(k_numbers) + k_list + k_restOfTree,
                       [&root] { return readNumbers(*root) + readTree(*root); });
}

TEST(SharedTree, IsReadInEveryWayOnceItsPartIsPrepared) {
    const std::unique_ptr<const Element> root = sharedTree();
    const Element& list = root->get("list");
    list.prepareForSharing();
    expectOfEachThread(k_list, [&list] { return readList(list); });
}

TEST(SharedTree, TellsATextOutOfRangeByExactConversionAloneOncePrepared) {
    const std::unique_ptr<const Element> root = parsed("[12345678901234567890,1e400]");
    root->prepareForSharing();
    expectOfEachThread("ebULongLong 12345678901234567890 ebDouble 1", [&root] {
        const BasicNumber& integer = root->at(0);
        const BasicNumber& floating = root->at(1);
        return classicText(integer.type(), ' ', integer.as<unsigned long long>(), ' ',
                           floating.type(), ' ', !floating.tryAs<double>());
    });
}

TEST(SharedTree, RaisesInEachThreadWhatIsRefused) {
    const std::unique_ptr<const Element> root = sharedTree();
    root->prepareForSharing();
    const Element& first = root->get("list[0].n");
    expectOfEachThread("Value out of range! Value: -5 Min: 0 Max: 4294967295", [&first] {
        return thrown<ValueOutOfRange<BasicNumber, unsigned int>>(
            [&first] { return static_cast<unsigned int>(first); });
    });
}
