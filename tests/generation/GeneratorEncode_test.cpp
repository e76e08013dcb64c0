#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "generation/KindOnly.h"
#include "generation/documentOf.h"
#include "generation/noStream.h"
#include "support/rowName.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

const char* const k_noRoot = "Generator: document has no root!";

class Broken : public KindOnly {
public:
    Broken() : KindOnly(etObject) {}
    using Element::getObjectValue;
    Object& getObjectValue() override { throw std::runtime_error("broken"); }
};

TEST(GeneratorEncodeToStream, ReturnsTheStream) {
    std::ostringstream out;
    Generator forElement(nullptr);
    EXPECT_EQ(&forElement.encode(out, *value(1)), &out);
    EXPECT_EQ(out.str(), "1\n");
    Generator forDocument(nullptr);
    EXPECT_EQ(&forDocument.encode(out, documentOf(value(2))), &out);
    EXPECT_EQ(out.str(), "1\n2\n");
}

TEST(GeneratorEncodeToStream, KeepsTheStreamForWhatFollows) {
    std::ostringstream out;
    Generator generator(nullptr);
    generator.gen_array_open();
    generator.encode(out, *value(1));
    EXPECT_EQ(out.str(), "[\n1");
    generator.gen_array_close();
    generator.flush();
    EXPECT_EQ(out.str(), "[\n1\n]\n");
}

TEST(GeneratorEncodeToStream, TakesWhatIsPendingToTheNewStream) {
    std::ostringstream former;
    std::ostringstream out;
    {
        Generator generator(&former);
        generator.gen_array_open();
        generator.encode(out, documentOf(value(1)));
        generator.gen_array_close();
    }
    EXPECT_EQ(former.str(), "");
    EXPECT_EQ(out.str(), "[\n1\n]\n");
}

TEST(GeneratorEncodeToStream, WritesNothingTheSecondTime) {
    std::ostringstream first;
    std::ostringstream second;
    Generator generator(nullptr);
    generator.encode(first, *array());
    generator.encode(second, *array());
    generator.encode(second, documentOf(object()));
    EXPECT_EQ(first.str(), "[\n\n]\n");
    EXPECT_EQ(second.str(), "");
}

TEST(GeneratorEncodeToStream, KeepsTheStreamThoughTheDocumentHasNoRoot) {
    std::ostringstream out;
    Generator generator(nullptr);
    EXPECT_EQ(thrown<Exception>([&] { generator.encode(out, Dom()); }), k_noRoot);
    EXPECT_EQ(out.str(), "");
    generator.gen_null();
    generator.flush();
    EXPECT_EQ(out.str(), "null\n");
}

TEST(GeneratorEncodeToStream, FollowsTheIndent) {
    std::ostringstream out;
    Generator generator(nullptr);
    generator.setIndent("");
    generator.encode(out, *array());
    EXPECT_EQ(out.str(), "[]");
}

// Each form that writes to a string, given the generator and what to write.
struct StringForm {
    const char* name;
    void (*encode)(Generator&, const Element&);
};

class GeneratorAfterEncodeToString : public testing::TestWithParam<StringForm> {};

TEST_P(GeneratorAfterEncodeToString, HasNoStream) {
    std::ostringstream former;
    Generator generator(&former);
    generator.gen_array_open();
    GetParam().encode(generator, *value(1));
    generator.flush();  // nothing is pending
    generator.gen_array_close();
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    EXPECT_EQ(former.str(), "");

    std::ostringstream out;
    generator.encode(out, *value(2));  // refused, but sets the stream
    EXPECT_EQ(out.str(), "\n]\n");
}

TEST_P(GeneratorAfterEncodeToString, ThrowsFromTheDestructorWhenTextIsPending) {
    std::ostringstream former;
    EXPECT_EQ(thrown<Exception>([&] {
                  Generator generator(&former);
                  generator.gen_array_open();
                  GetParam().encode(generator, *value(1));
                  generator.gen_array_close();
              }),
              k_noStream);
    EXPECT_EQ(former.str(), "");
}

TEST_P(GeneratorAfterEncodeToString, IsDestroyedInPeaceWhenNothingIsPending) {
    EXPECT_NO_THROW({
        Generator generator(nullptr);
        GetParam().encode(generator, *value(1));
    });
}

TEST_P(GeneratorAfterEncodeToString, HasNoStreamThoughAnElementThrew) {
    std::ostringstream former;
    Generator generator(&former);
    generator.gen_array_open();
    EXPECT_THROW(GetParam().encode(generator, Broken()), std::runtime_error);
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    EXPECT_EQ(former.str(), "");

    std::ostringstream out;
    generator.encode(out, *value(2));
    EXPECT_EQ(out.str(), "[\n2");
}

INSTANTIATE_TEST_SUITE_P(
    Generator, GeneratorAfterEncodeToString,
    testing::Values(StringForm{"IntoAString",
                               [](Generator& generator, const Element& element) {
                                   std::string out;
                                   generator.encode(out, element);
                               }},
                    StringForm{"ReturningAString",
                               [](Generator& generator, const Element& element) {
                                   generator.encode(element);
                               }}),
    k_rowName);

TEST(GeneratorAfterEncode, OfADocumentWithoutARootLeavesTheTextAndNoStream) {
    std::ostringstream former;
    std::string out = "text";
    Generator generator(&former);
    EXPECT_EQ(thrown<Exception>([&] { generator.encode(out, Dom()); }), k_noRoot);
    EXPECT_EQ(out, "text");
    generator.gen_array_open();
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    EXPECT_EQ(thrown<Exception>([&] { generator.encode(Dom()); }), k_noRoot);
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    EXPECT_EQ(former.str(), "");

    generator.encode(former, *value(1));
    EXPECT_EQ(former.str(), "[\n1");
}

TEST(GeneratorAfterEncode, OfADocumentLeavesNoStream) {
    std::ostringstream former;
    Generator generator(&former);
    generator.gen_array_open();
    EXPECT_EQ(generator.encode(documentOf(value(1))), "[\n1");
    std::string out;
    generator.encode(out, documentOf(value(2)));
    EXPECT_EQ(out, ",\n2");
    generator.gen_array_close();
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    generator.encode(former, *value());
    EXPECT_EQ(former.str(), "\n]\n");
}

}  // namespace
