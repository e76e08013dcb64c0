#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <ios>
#include <memory>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <type_traits>

#include <zo/Tessera/Exception.h>

#include "generation/noStream.h"
#include "support/thrown.h"

using namespace zo::Tessera;

static_assert(!std::is_nothrow_destructible_v<Generator>);

namespace {

class Derived : public Generator {
public:
    using Generator::Generator;
};

TEST(GeneratorDestructor, FlushesToTheStream) {
    std::ostringstream out;
    {
        Generator generator(&out);
        generator.gen_null();
        EXPECT_EQ(out.str(), "");
    }
    EXPECT_EQ(out.str(), "null\n");
}

TEST(GeneratorDestructor, FlushesAnUnfinishedDocument) {
    std::ostringstream out;
    {
        Generator generator(&out);
        generator.gen_array_open();
        generator.gen_integer(1);
    }
    EXPECT_EQ(out.str(), "[\n1");
}

TEST(GeneratorDestructor, WritesNothingTwice) {
    std::ostringstream out;
    {
        Generator generator(&out);
        generator.gen_null();
        generator.flush();
    }
    EXPECT_EQ(out.str(), "null\n");
}

TEST(GeneratorDestructor, IsReachedThroughTheBase) {
    std::ostringstream out;
    std::unique_ptr<Generator> generator = std::make_unique<Derived>(&out);
    generator->gen_null();
    generator.reset();
    EXPECT_EQ(out.str(), "null\n");
}

TEST(GeneratorDestructor, WithNothingPendingNeedsNoStream) {
    EXPECT_NO_THROW({ const Generator generator(nullptr); });
    EXPECT_NO_THROW({
        Generator generator(nullptr);
        generator.gen_object_close();
    });
}

TEST(GeneratorDestructor, ThrowsWithTextPendingAndNoStream) {
    EXPECT_EQ(thrown<Exception>([] {
                  Generator generator(nullptr);
                  generator.gen_null();
              }),
              k_noStream);
}

// The owner is a plain pointer here: a unique_ptr would end the program instead.
TEST(GeneratorDestructor, ThrowsOnTheHeapAndReleasesItsMemory) {
    EXPECT_EQ(thrown<Exception>([] {
                  auto* const generator = new Generator(nullptr);
                  generator->gen_string(std::string(10000, 'x'));
                  delete generator;
              }),
              k_noStream);
    EXPECT_EQ(thrown<Exception>([] {
                  Generator* const generator = new Derived(nullptr);
                  generator->gen_null();
                  delete generator;
              }),
              k_noStream);
}

TEST(GeneratorDestructor, ThrowsThoughTheTextIsDeep) {
    EXPECT_EQ(thrown<Exception>([] {
                  Generator generator(nullptr);
                  for (int i = 0; i < 1000; ++i) {
                      generator.gen_array_open();
                  }
              }),
              k_noStream);
}

TEST(GeneratorDestructor, ThrowsAfterAFlushThatThrew) {
    EXPECT_EQ(thrown<Exception>([] {
                  Generator generator(nullptr);
                  generator.gen_null();
                  EXPECT_EQ(thrown<Exception>([&] { generator.flush(); }), k_noStream);
              }),
              k_noStream);
}

TEST(GeneratorDestructor, ThrowsInsideAHandlerOfAnotherException) {
    try {
        throw std::runtime_error("first");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(thrown<Exception>([] {
                      Generator generator(nullptr);
                      generator.gen_null();
                  }),
                  k_noStream);
    }
}

TEST(GeneratorDestructor, DoesNotThrowWhileAnotherExceptionIsOnItsWay) {
    std::string caught;
    try {
        Generator generator(nullptr);
        generator.gen_null();
        throw std::runtime_error("first");
    } catch (const std::exception& exception) {
        caught = exception.what();
    }
    EXPECT_EQ(caught, "first");
}

TEST(GeneratorDestructor, LetsTheExceptionOfFlushPass) {
    EXPECT_EQ(thrown<Exception>([] {
                  Generator generator(nullptr);
                  generator.gen_null();
                  generator.flush();
              }),
              k_noStream);
}

TEST(GeneratorDestructor, FlushesWhileAnotherExceptionIsOnItsWay) {
    std::ostringstream out;
    try {
        Generator generator(&out);
        generator.gen_null();
        throw std::runtime_error("first");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(out.str(), "null\n");
}

// Takes no character, so that a write makes the stream bad.
class Full : public std::streambuf {};

class GeneratorDestructorOverFullStream : public testing::Test {
protected:
    GeneratorDestructorOverFullStream() { out.exceptions(std::ios_base::badbit); }

    Full buffer;
    std::ostream out{&buffer};
};

TEST_F(GeneratorDestructorOverFullStream, ThrowsTheStreamsException) {
    const auto destroy = [this] {
        Generator generator(&out);
        generator.gen_null();
    };
    EXPECT_THROW(destroy(), std::ios_base::failure);
}

TEST_F(GeneratorDestructorOverFullStream, DoesNotThrowWhileAnotherExceptionIsOnItsWay) {
    std::string caught;
    try {
        Generator generator(&out);
        generator.gen_null();
        throw std::runtime_error("first");
    } catch (const std::exception& exception) {
        caught = exception.what();
    }
    EXPECT_EQ(caught, "first");
    EXPECT_TRUE(out.bad());
}

}  // namespace
