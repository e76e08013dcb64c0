#include <zo/Tessera/Element.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <zo/DecNumber.h>
#include <zo/Tessera/Array.h>
#include <zo/Tessera/BasicNumber.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathGenerator.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/TBasicElement.h>
#include <zo/convert.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

const Path k_deep = k_long + ".inner[2]." + k_long;
const Path k_missing = k_long + ".inner[2]." + k_long + "?";
const std::unique_ptr<const Element> k_pattern = value(k_long);

/// An operation that changes nothing, and its answer as text.
struct Reading {
    const char* name;
    std::function<std::string(const Element& root)> read;
};

class OutOfMemoryInAReading : public testing::TestWithParam<Reading> {};

TEST_P(OutOfMemoryInAReading, ChangesNothingAndIsNeverAWrongAnswer) {
    const std::string before = dump(*richTree());
    const std::string expected = GetParam().read(*richTree());
    std::unique_ptr<Element> root;
    std::string answer;
    const long failures =
        failEachAllocation([&] { root = richTree(); }, [&] { answer = GetParam().read(*root); },
                           [&] {
                               EXPECT_EQ(dump(*root), before);
                               expectWhole(*root);
                           });
    EXPECT_GT(failures, 0);
    EXPECT_EQ(answer, expected);
    EXPECT_EQ(dump(*root), before);
}

/// What `write` puts into a stream that passes its own want of memory on.
template <class Char, class Write>
std::basic_string<Char> streamed(const Write& write) {
    std::basic_ostringstream<Char> out;
    out.exceptions(std::ios::badbit);
    write(out);
    return out.str();
}

template <class Write>
std::string narrow(const Write& write) {
    return streamed<char>(write);
}

template <class Write>
std::string wide(const Write& write) {
    return zo::convert(streamed<wchar_t>(write));
}

std::string yesOrNo(bool answer) {
    return k_long + (answer ? "yes" : "no");
}

/// The key of an element that was found.
std::string keyOf(const Element* element) {
    return element ? element->key() + k_long : k_long;
}

std::string dumpAndDelete(Element* element) {
    return dump(*std::unique_ptr<Element>(element));
}

INSTANTIATE_TEST_SUITE_P(
    Element, OutOfMemoryInAReading,
    testing::Values(
        Reading{"Clone", [](const Element& e) { return dumpAndDelete(e.clone()); }},
        Reading{"CloneOfAnArray",
                [](const Element& e) { return dumpAndDelete(e.at("list").clone()); }},
        Reading{"CloneOfAString",
                [](const Element& e) { return dumpAndDelete(e.at("text").clone()); }},
        Reading{"CloneOfANumber",
                [](const Element& e) { return dumpAndDelete(e.at("number").clone()); }},
        Reading{"CloneOfABoolean",
                [](const Element& e) { return dumpAndDelete(e.at("flag").clone()); }},
        Reading{"CloneOfANull",
                [](const Element& e) { return dumpAndDelete(e.at("none").clone()); }},
        Reading{"CopyOfAnObject",
                [](const Element& e) { return dump(Object(e.getObjectValue())); }},
        Reading{"CopyOfAnArray",
                [](const Element& e) { return dump(Array(e.at("list").getArrayValue())); }},
        Reading{"CopyOfAString",
                [](const Element& e) {
                    return dump(TBasicElement<std::string>(e.at("text").getStringValue()));
                }},
        Reading{"Compare",
                [](const Element& e) {
                    return yesOrNo(e.compare(*std::unique_ptr<Element>(e.clone())) == 0);
                }},
        Reading{"CompareObjects",
                [](const Element& e) {
                    return yesOrNo(e.getObjectValue().compare(e.at(k_long).getObjectValue()) > 0);
                }},
        Reading{"CompareArrays",
                [](const Element& e) {
                    const Array& list = e.at("list").getArrayValue();
                    return yesOrNo(list.compare(Array(list)) == 0);
                }},
        Reading{"TypeName", [](const Element& e) { return k_long + e.typeName(); }},
        Reading{"Key", [](const Element& e) { return e.at(k_long).key(); }},
        Reading{"Path", [](const Element& e) { return e.get(k_deep).path(nullptr); }},
        Reading{"PathIntoAStream",
                [](const Element& e) {
                    return narrow([&](auto& out) { e.get(k_deep).path(out, nullptr); });
                }},
        Reading{"SchemaPath", [](const Element& e) { return e.get(k_deep).schemaPath(nullptr); }},
        Reading{"SchemaPathIntoAStream",
                [](const Element& e) {
                    return narrow([&](auto& out) { e.get(k_deep).schemaPath(out, nullptr); });
                }},
        Reading{"WriteTo",
                [](const Element& e) {
                    return narrow([&](auto& out) { e.at(k_long).at("inner").at(2).writeTo(out); });
                }},
        Reading{"WriteToAWideStream",
                [](const Element& e) {
                    return wide([&](auto& out) { e.at(k_long).at("inner").at(2).writeTo(out); });
                }}),
    k_rowName);

INSTANTIATE_TEST_SUITE_P(
    Path, OutOfMemoryInAReading,
    testing::Values(
        Reading{"Get", [](const Element& e) { return keyOf(&e.get(k_deep)); }},
        Reading{"GetElement", [](const Element& e) { return keyOf(&Path::getElement(k_deep, e)); }},
        Reading{"TryGetElement",
                [](const Element& e) { return keyOf(Path::tryGetElement(k_deep, e)); }},
        Reading{"TryGetElementOfAKind",
                [](const Element& e) { return keyOf(Path::tryGetElement(k_deep, e, etObject)); }},
        Reading{"TryGetWhatIsMissing",
                [](const Element& e) { return keyOf(Path::tryGetElement(k_missing, e)); }},
        Reading{"PathExists", [](const Element& e) { return yesOrNo(e.pathExists(k_deep)); }},
        Reading{"PathExistsNot", [](const Element& e) { return yesOrNo(e.pathExists(k_missing)); }},
        Reading{"PathExistsOfAKind",
                [](const Element& e) { return yesOrNo(Path::pathExists(k_deep, e, etObject)); }},
        Reading{"FindElement",
                [](const Element& e) { return keyOf(e.findElement(*k_pattern, "", "list")); }},
        Reading{"FindElementByAKey",
                [](const Element& e) {
                    return keyOf(e.findElement(Object::k_empty, k_long, k_long + ".inner"));
                }},
        Reading{"GetDefault", [](const Element& e) { return keyOf(&e.getDefault("flag")); }},
        Reading{"GetUsingDefault",
                [](const Element& e) { return keyOf(&e.getUsingDefault("flag")); }},
        Reading{"ToSchemaPath", [](const Element&) { return Path::toSchemaPath(k_deep); }},
        Reading{"FromSchemaPath",
                [](const Element& e) {
                    return Path::fromSchemaPath(e.get(k_deep).schemaPath(nullptr));
                }},
        Reading{"ElementPath",
                [](const Element& e) {
                    return narrow(
                        [&](auto& out) { Path::elementPath(out, e.get(k_deep), nullptr); });
                }},
        Reading{"ElementSchemaPath",
                [](const Element& e) {
                    return narrow(
                        [&](auto& out) { Path::elementSchemaPath(out, e.get(k_deep), nullptr); });
                }},
        Reading{"Construction", [](const Element&) { return Path(k_long.c_str()) + Path(k_long); }},
        Reading{"Copy", [](const Element&) { return Path(k_deep); }}),
    k_rowName);

const BasicNumber& numberIn(const Element& root, const char* key) {
    return root.at(key).getNumberValue().value();
}

BasicNumber fromText(const char* text) {
    BasicNumber number;
    number.set(text);
    return number;
}

template <class T>
std::string numberText(T value) {
    BasicNumber number;
    number.set(value);
    return number.toString() + k_long;
}

INSTANTIATE_TEST_SUITE_P(
    BasicNumber, OutOfMemoryInAReading,
    testing::Values(
        Reading{"Copy",
                [](const Element& e) { return BasicNumber(numberIn(e, "number")).toString(); }},
        Reading{"ToWString",
                [](const Element& e) { return zo::convert(numberIn(e, "number").toWString()); }},
        Reading{"WriteAt",
                [](const Element& e) {
                    return narrow([&](auto& out) { numberIn(e, "number").writeAt(out); });
                }},
        Reading{"WriteAtAWideStream",
                [](const Element& e) {
                    return wide([&](auto& out) { numberIn(e, "number").writeAt(out); });
                }},
        Reading{"ToDecNumber",
                [](const Element& e) {
                    return narrow(
                        [&](auto& out) { numberIn(e, "number").toDecNumber().writeTo(out); });
                }},
        Reading{"TextOfASignedNumber",
                [](const Element&) { return numberText(-1234567890123456789LL); }},
        Reading{"TextOfAnUnsignedNumber",
                [](const Element&) { return numberText(12345678901234567890ULL); }},
        Reading{"TextOfADouble", [](const Element&) { return numberText(1e-300); }},
        Reading{"BinaryFormOfBlanksAndDigits",
                [](const Element&) { return numberText(fromText("          1234567").toInt()); }},
        Reading{"CompareWithAText",
                [](const Element&) {
                    return yesOrNo(BasicNumber::compare(0.5, "0.50000000000000000000001") < 0);
                }}),
    k_rowName);

template <class Value>
Reading named(const char* name, Value value) {
    return {name, [value](const Element&) {
                return narrow([&](auto& out) { out << value << k_long; }) +
                       wide([&](auto& out) { out << value; });
            }};
}

INSTANTIATE_TEST_SUITE_P(Enumerators, OutOfMemoryInAReading,
                         testing::Values(named("Kind", etArray),
                                         named("BinaryForm", BasicNumber::ebBigDecimal),
                                         named("StateOfAPathParser", PathParser::esArrayInit),
                                         named("StateOfAPathGenerator", PathGenerator::esArray)),
                         k_rowName);

}  // namespace
