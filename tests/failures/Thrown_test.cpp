#include <zo/Tessera/Exception.h>

#include <exception>
#include <functional>
#include <limits>
#include <memory>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zo/DecNumber.h>
#include <zo/Tessera/Array.h>
#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Null.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/TBasicElement.h>
#include <zo/convert.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/NumberOf.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

/// An operation that is refused, and how the exception's text begins.
struct Refusal {
    const char* name;
    std::function<void(Element& root)> run;
    std::string text;
};

class OutOfMemoryInARefusal : public testing::TestWithParam<Refusal> {};

/// What `run` raises itself. Keeping it takes no memory.
std::exception_ptr raisedBy(const std::function<void(Element&)>& run, Element& root) {
    try {
        run(root);
    } catch (const zo::Exception&) {
        return std::current_exception();
    }
    return nullptr;
}

std::string textOf(const std::exception_ptr& raised) {
    try {
        std::rethrow_exception(raised);
    } catch (const zo::Exception& exception) {
        return exception.what();
    }
}

TEST_P(OutOfMemoryInARefusal, ArrivesInPlaceOfTheExceptionAndChangesNothing) {
    const Refusal& refusal = GetParam();
    const std::string before = dump(*richTree());
    std::unique_ptr<Element> root;
    std::exception_ptr raised;
    const auto prepare = [&] {
        root = richTree();
        raised = nullptr;
    };
    const auto check = [&] {
        EXPECT_EQ(raised, nullptr);
        EXPECT_EQ(dump(*root), before);
        expectWhole(*root);
    };
    const long failures = failEachAllocation(
        prepare, [&] { raised = raisedBy(refusal.run, *root); }, check);
    EXPECT_GT(failures, 0);
    ASSERT_NE(raised, nullptr);
    EXPECT_THAT(textOf(raised), testing::StartsWith(refusal.text));
    EXPECT_EQ(dump(*root), before);
}

std::string mismatch(const char* requested, const char* found, const char* path) {
    return std::string("Json type mismatch! Requestet Json type: ") + requested +
           " Got Json type: " + found + " Current element: \"" + path + '"';
}

std::string notFound(const std::string& path, const char* key) {
    return "Path \"" + path + "\" not found! Key \"" + key + '"';
}

const std::string k_noElement = "Null pointer exception: element may not be null";
const std::string k_noText = "Null pointer exception: text may not be null";
const std::string k_noParent = "Null pointer exception: parent may not be null";
const std::string k_noChild = "Null pointer exception: child may not be null";
const std::string k_unreadable = "Reading from srteam not (yet) supported for Tessera::";
const std::string k_outOfRange = "Value out of range! Value: ";

/// Reads `element` from a stream that needs no memory.
void readFrom(Element& element) {
    std::istream in(nullptr);
    element.readFrom(in);
}

INSTANTIATE_TEST_SUITE_P(
    Element, OutOfMemoryInARefusal,
    testing::Values(
        Refusal{"BooleanOfAnObject", [](Element& e) { e.getBooleanValue(); },
                mismatch("etBoolean", "etObject", "")},
        Refusal{"NumberOfAString", [](Element& e) { e.at("text").getNumberValue(); },
                mismatch("etBoolean", "etString", "text")},
        Refusal{"StringOfANull", [](Element& e) { e.at("none").getStringValue(); },
                mismatch("etString", "etNull", "none")},
        Refusal{"ObjectOfAnItem", [](Element& e) { e.at("list").at(1).getObjectValue(); },
                mismatch("etObject", "etString", "list[1]")},
        Refusal{"ArrayOfAString", [](Element& e) { e.at("text").getArrayValue(); },
                mismatch("etArray", "etString", "text")},
        Refusal{"SettingANumberInAString",
                [](Element& e) { e.at("text").setNumberValue(BasicNumber()); },
                mismatch("etBoolean", "etString", "text")},
        Refusal{"SettingAnObjectInAnArray",
                [](Element& e) { e.at("list").setObjectValue(Object::k_empty); },
                mismatch("etObject", "etArray", "list")},
        Refusal{"AssigningAnArrayToAnObject", [](Element& e) { e.realAssign(Array::k_empty); },
                mismatch("etObject", "etObject", "")},
        Refusal{"ItemOfAnObject", [](Element& e) { e.at(0); },
                mismatch("etObject", "etObject", "")},
        Refusal{"MissingMember", [](Element& e) { e.at(k_long + "?"); },
                "Object does not contain \"" + k_long + "?\""},
        Refusal{"NullChild", [](Element& e) { e.at("list").getArrayValue().push_back(nullptr); },
                k_noChild},
        Refusal{"NullMember", [](Element& e) { e.getObjectValue().insert("k", nullptr); },
                k_noChild},
        Refusal{"NullParent", [](Element&) { Element::createString(k_long, nullptr, k_long); },
                k_noParent},
        Refusal{"ParentOfAnotherKind", [](Element& e) { Element::createObject(&e); },
                mismatch("etObject", "etObject", "")},
        Refusal{"NullText", [](Element&) { value(static_cast<const char*>(nullptr)); }, k_noText},
        Refusal{"ReadingANull", [](Element& e) { readFrom(e.at("none")); }, k_unreadable + "Null."},
        Refusal{"ReadingAString", [](Element& e) { readFrom(e.at("text")); },
                k_unreadable + "TBasicElement."},
        Refusal{"ReadingAnArray", [](Element& e) { readFrom(e.at("list")); },
                k_unreadable + "Array."},
        Refusal{"ReadingAnObject", [](Element& e) { readFrom(e); }, k_unreadable + "Object."}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Path, OutOfMemoryInARefusal,
    testing::Values(
        Refusal{"Get", [](Element& e) { e.get(k_long + ".none.x"); },
                notFound(k_long + ".none.x", "none")},
        Refusal{"GetElement", [](Element& e) { Path::getElement("list[4]", e); },
                notFound("list[4]", "[4]")},
        Refusal{"CreateElement",
                [](Element& e) { Path::createElement(e, "list[9]", Array::k_empty); },
                notFound("list[9]", "[9]")},
        Refusal{"TryCreateElement",
                [](Element& e) { Path::tryCreateElement(e, "text.x", Array::k_empty); },
                R"(Error creating element. Parent: "" path: "text.x")"},
        Refusal{"AnyIndex", [](Element& e) { e.pathExists("list[*]"); }, "Index must be set!"},
        Refusal{"Syntax", [](Element& e) { e.pathExists("list.]"); },
                "Parse error at 1,4-1,5Unexpected character ']' in path at \"\" 4,5 parser state "
                "esObjectInit"},
        Refusal{"UnreadableIndex", [](Element& e) { e.get("list[99999999999999999999]"); },
                "Parse error at 1,5-1,25Unreadable index"},
        Refusal{"NullPath", [](Element&) { Path(static_cast<const char*>(nullptr)); },
                "Null pointer exception: path may not be null"},
        Refusal{"NoSchemaPath", [](Element&) { Path::fromSchemaPath(k_long); },
                "Schema path must begin with meta.schema!"},
        Refusal{"InsertIntoAnArray",
                [](Element& e) { e.at("list").insertElement("k", value(k_long)); },
                mismatch("etObject", "etArray", "list")},
        Refusal{"InsertACopyIntoAnArray",
                [](Element& e) { e.at("list").insertElement("k", Array::k_empty); },
                mismatch("etObject", "etArray", "list")},
        Refusal{"InsertNothing",
                [](Element& e) { e.insertElement("k", std::unique_ptr<Element>()); }, k_noElement},
        Refusal{"UpdateByNothing", [](Element& e) { e.tryUpdate("k", std::unique_ptr<Element>()); },
                k_noElement},
        Refusal{"UpdateByAnotherKind", [](Element& e) { e.tryUpdate("list", e.at("text")); },
                mismatch("etString", "etArray", "list")},
        Refusal{"FindInNoArray", [](Element& e) { e.findElement(Array::k_empty, "", "text"); },
                mismatch("etArray", "etString", "text")},
        Refusal{"FindWhereNothingIs",
                [](Element& e) { e.findElement(Array::k_empty, "", "missing"); },
                notFound("missing", "missing")},
        Refusal{"RemoveByNoPattern",
                [](Element& e) { e.removeElement(std::unique_ptr<Element>(), "", "list"); },
                "Null pointer exception: pattern may not be null"},
        Refusal{"GetDefault", [](Element& e) { e.getDefault("text"); },
                notFound("meta.schema.properties.text.default", "text")},
        Refusal{"GetUsingDefault", [](Element& e) { e.getUsingDefault("text"); },
                notFound("meta.schema.properties.text.default", "text")}),
    k_rowName);

/// A number of more digits than any integer has, made anew for each try.
BasicNumber huge() {
    return numberOf("123456789012345678901234567890");
}

INSTANTIATE_TEST_SUITE_P(
    Number, OutOfMemoryInARefusal,
    testing::Values(
        Refusal{"Type", [](Element&) { static_cast<void>(huge().type()); },
                k_outOfRange + "123456789012345678901234567890 Min:  Max: "},
        Refusal{
            "InfiniteText",
            [](Element&) { static_cast<void>(numberOf("1.00000000000000000000e999").toDouble()); },
            k_outOfRange + "1.00000000000000000000e999 Min:  Max: "},
        Refusal{"Conversion",
                [](Element& e) { static_cast<void>(static_cast<unsigned int>(e.at("flag"))); },
                mismatch("etBoolean", "etBoolean", "flag")},
        Refusal{
            "TooLarge",
            [](Element&) { static_cast<void>(numberOf("3000000000.000000000000000000").toInt()); },
            k_outOfRange + "3000000000.000000000000000000 Min: -2147483648 Max: 2147483647"},
        Refusal{"Comparison", [](Element&) { static_cast<void>(BasicNumber().compare(huge())); },
                k_outOfRange + "123456789012345678901234567890 Min:  Max: "},
        Refusal{"NotANumber",
                [](Element&) { numberOf(std::numeric_limits<double>::quiet_NaN()).toDecNumber(); },
                "Not a decimal number: \"nan\""},
        Refusal{"NullText", [](Element&) { numberOf(static_cast<const char*>(nullptr)); },
                k_noText},
        Refusal{"NoDecimal", [](Element&) { zo::DecNumber("x"); }, "Not a decimal number: \"x\""},
        Refusal{"ExponentOfADecimal", [](Element&) { zo::DecNumber("1e999999999999999999"); },
                "Exponent of a decimal number out of range: \"1e999999999999999999\""},
        Refusal{"DecimalThatDoesNotFit",
                [](Element&) { static_cast<void>(static_cast<int>(zo::DecNumber("3e9"))); },
                "Decimal number does not fit into int: \"3000000000\""},
        Refusal{"NullDecimal", [](Element&) { zo::DecNumber(static_cast<const char*>(nullptr)); },
                k_noText},
        Refusal{"NullWideText", [](Element&) { zo::convert(static_cast<const wchar_t*>(nullptr)); },
                k_noText},
        Refusal{"DocumentWithoutRoot",
                [](Element&) {
                    std::ostream out(nullptr);
                    out << Dom();
                },
                "Generator: document has no root!"}),
    k_rowName);

// The exception is raised once only; one that could not be made counts as not raised.
TEST(OutOfMemoryInARefusal, LeavesATextOutOfRangeToBeRefusedLater) {
    using TextOutOfRange = ValueOutOfRange<std::string, std::string>;
    BasicNumber number;
    const auto check = [&] {
        EXPECT_THROW(static_cast<void>(number.type()), TextOutOfRange);
        EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
    };
    const auto read = [&] {
        try {
            static_cast<void>(number.type());
        } catch (const zo::Exception&) {
        }
    };
    EXPECT_GT(failEachAllocation([&] { number = huge(); }, read, check), 0);
    EXPECT_EQ(number.type(), BasicNumber::ebULongLong);
}

}  // namespace
