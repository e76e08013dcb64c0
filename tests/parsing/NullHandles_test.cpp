// yajl gives no handle when its own allocation fails. This program takes the place of the two
// functions that make handles, so that they can be told to give none.

#include <zo/Tessera/CallbackParser.h>
#include <zo/Tessera/Generator.h>

#include <yajl/yajl_gen.h>
#include <yajl/yajl_parse.h>

#include <new>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/DomParser.h>

#include "support/realYajl.h"

namespace {

bool s_giveNone = false;

struct GiveNone {
    GiveNone() { s_giveNone = true; }
    GiveNone(const GiveNone&) = delete;
    GiveNone& operator=(const GiveNone&) = delete;
    ~GiveNone() { s_giveNone = false; }
};

}  // namespace

yajl_handle yajl_alloc(const yajl_callbacks* callbacks, yajl_alloc_funcs* functions,
                       void* context) {
    return s_giveNone ? nullptr
                      : realYajl(&yajl_alloc, "yajl_alloc")(callbacks, functions, context);
}

yajl_gen yajl_gen_alloc(const yajl_alloc_funcs* functions) {
    return s_giveNone ? nullptr : realYajl(&yajl_gen_alloc, "yajl_gen_alloc")(functions);
}

using namespace zo::Tessera;

TEST(NullHandle, OfAParserIsABadAllocation) {
    const GiveNone none;
    EXPECT_THROW(DomParser(), std::bad_alloc);
}

TEST(NullHandle, OfAGeneratorIsABadAllocation) {
    const GiveNone none;
    EXPECT_THROW(Generator(nullptr), std::bad_alloc);
}

TEST(NullHandle, OfADeepPartLeavesTheGeneratorAsItWas) {
    Generator generator(nullptr);
    generator.setIndent("");
    for (int i = 0; i < 127; ++i) {
        generator.gen_array_open();
    }
    {
        const GiveNone none;
        EXPECT_THROW(generator.gen_array_open(), std::bad_alloc);
    }
    EXPECT_EQ(generator.gen_array_open(), 0);
    for (int i = 0; i < 128; ++i) {
        EXPECT_EQ(generator.gen_array_close(), 0);
    }
    EXPECT_EQ(generator.encode(*value()), std::string(128, '[') + std::string(128, ']'));
}
