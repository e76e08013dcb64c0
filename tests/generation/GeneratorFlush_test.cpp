#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>

#include "generation/noStream.h"
#include "support/thrown.h"

using namespace zo::Tessera;

namespace {

TEST(GeneratorFlush, NothingReachesTheStreamBefore) {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_string(std::string(100000, 'x'));
    EXPECT_EQ(out.str(), "");
    generator.flush();
    EXPECT_EQ(out.str(), "\"" + std::string(100000, 'x') + "\"\n");
}

TEST(GeneratorFlush, MovesTheTextOnceOnly) {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_null();
    generator.flush();
    generator.flush();
    EXPECT_EQ(out.str(), "null\n");
}

TEST(GeneratorFlush, GoesOnWhereTheLastOneEnded) {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_object_open();
    generator.flush();
    EXPECT_EQ(out.str(), "{\n");
    generator.gen_string("a");
    generator.flush();
    EXPECT_EQ(out.str(), "{\n\"a\"");
    generator.gen_integer(1);
    generator.flush();
    EXPECT_EQ(out.str(), "{\n\"a\": 1");
    generator.gen_string("b");
    generator.flush();
    EXPECT_EQ(out.str(), "{\n\"a\": 1,\n\"b\"");
    generator.gen_null();
    generator.gen_object_close();
    generator.flush();
    EXPECT_EQ(out.str(), "{\n\"a\": 1,\n\"b\": null\n}\n");
}

TEST(GeneratorFlush, AddsToWhatTheStreamHolds) {
    std::ostringstream out;
    out << "text: ";
    Generator generator(&out);
    generator.gen_null();
    generator.flush();
    out << "more";
    EXPECT_EQ(out.str(), "text: null\nmore");
}

TEST(GeneratorFlush, WritesUnformatted) {
    std::ostringstream out;
    out << std::setw(20) << std::setfill('*') << std::hex;
    Generator generator(&out);
    generator.gen_integer(255);
    generator.flush();
    EXPECT_EQ(out.str(), "255\n");
    EXPECT_EQ(out.width(), 20);
}

TEST(GeneratorFlush, OfNothingNeedsNoStream) {
    Generator generator(nullptr);
    generator.flush();
    generator.setIndent("");
    generator.flush();
    std::ostringstream out;
    generator.encode(out, *value());
    EXPECT_EQ(out.str(), "null");
}

TEST(GeneratorFlush, OfALostEventNeedsNoStream) {
    Generator generator(nullptr);
    EXPECT_EQ(generator.gen_array_close(), 4);
    EXPECT_NO_THROW(generator.flush());
}

TEST(GeneratorFlush, WithoutAStreamKeepsTheTextForALaterOne) {
    Generator generator(nullptr);
    generator.gen_array_open();
    generator.gen_integer(1);
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
    generator.gen_integer(2);
    EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);

    std::ostringstream out;
    generator.encode(out, *value(3));
    EXPECT_EQ(out.str(), "[\n1,\n2,\n3");
    generator.gen_array_close();
    generator.flush();
    EXPECT_EQ(out.str(), "[\n1,\n2,\n3\n]\n");
}

TEST(GeneratorFlush, WithoutAStreamNamesNoElement) {
    Generator generator(nullptr);
    generator.gen_null();
    try {
        generator.flush();
        ADD_FAILURE() << "nothing thrown";
    } catch (const Exception& exception) {
        EXPECT_EQ(exception.elementPath(), nullptr);
    }
    std::ostringstream out;
    generator.encode(out, *value());
    EXPECT_EQ(out.str(), "null\n");
}

TEST(GeneratorFlush, IntoAFailedStreamLosesTheText) {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_array_open();
    out.setstate(std::ios_base::failbit);
    generator.flush();
    out.clear();
    generator.gen_array_close();
    generator.flush();
    EXPECT_EQ(out.str(), "\n]\n");
}

TEST(GeneratorFlush, KeepsEmbeddedZeros) {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_string(std::string("\xff\0\xfe", 3));
    generator.flush();
    EXPECT_EQ(out.str(), "\"\xff\\u0000\xfe\"\n");
}

}  // namespace
