#include <zo/Tessera/Generator.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace zo::Tessera;

namespace {

void emitDocument(Generator& generator) {
    generator.gen_array_open();
    generator.gen_object_open();
    generator.gen_string("a");
    generator.gen_null();
    generator.gen_object_close();
    generator.gen_array_close();
}

std::string writtenWithIndent(const std::string& indent) {
    std::ostringstream out;
    Generator generator(&out);
    generator.setIndent(indent);
    emitDocument(generator);
    generator.flush();
    return out.str();
}

const char* const k_withLineBreaks = "[\n{\n\"a\": null\n}\n]\n";

TEST(GeneratorIndent, LineBreaksAreOnFromTheStart) {
    std::ostringstream out;
    Generator generator(&out);
    emitDocument(generator);
    generator.flush();
    EXPECT_EQ(out.str(), k_withLineBreaks);
}

// Files that are compared with what earlier runs wrote rely on lines that begin at the margin.
TEST(GeneratorIndent, AnyTextGivesLineBreaksAndIsNotUsed) {
    EXPECT_EQ(writtenWithIndent("    "), k_withLineBreaks);
    EXPECT_EQ(writtenWithIndent("\t"), k_withLineBreaks);
    EXPECT_EQ(writtenWithIndent("--"), k_withLineBreaks);
    EXPECT_EQ(writtenWithIndent(std::string(1, '\0')), k_withLineBreaks);
    EXPECT_EQ(writtenWithIndent(std::string(1000, ' ')), k_withLineBreaks);
}

TEST(GeneratorIndent, EmptyTextWritesOneLineWithoutItsEnd) {
    EXPECT_EQ(writtenWithIndent(""), "[{\"a\":null}]");
}

TEST(GeneratorIndent, TheLastSettingCounts) {
    std::ostringstream out;
    Generator generator(&out);
    generator.setIndent("");
    generator.setIndent("  ");
    emitDocument(generator);
    generator.flush();
    EXPECT_EQ(out.str(), k_withLineBreaks);
}

TEST(GeneratorIndent, TheTextNeedNotOutliveTheCall) {
    std::ostringstream out;
    Generator generator(&out);
    {
        const std::string gone(100, '-');
        generator.setIndent(gone);
    }
    emitDocument(generator);
    generator.flush();
    EXPECT_EQ(out.str(), k_withLineBreaks);
}

TEST(GeneratorIndent, SwitchedOffInTheMiddleLeavesOutTheFurtherLineBreaks) {
    std::ostringstream out;
    Generator generator(&out);
    generator.gen_array_open();
    generator.gen_integer(1);
    generator.setIndent("");
    generator.gen_integer(2);
    generator.gen_array_close();
    generator.flush();
    EXPECT_EQ(out.str(), "[\n1,2]");
}

TEST(GeneratorIndent, SwitchedOnInTheMiddleAddsTheFurtherLineBreaks) {
    std::ostringstream out;
    Generator generator(&out);
    generator.setIndent("");
    generator.gen_object_open();
    generator.gen_string("a");
    generator.setIndent(" ");
    generator.gen_integer(1);
    generator.gen_string("b");
    generator.gen_integer(2);
    generator.gen_object_close();
    generator.flush();
    EXPECT_EQ(out.str(), "{\"a\": 1,\n\"b\": 2\n}\n");
}

TEST(GeneratorIndent, ChangesNothingThatIsWrittenAlready) {
    std::ostringstream out;
    Generator generator(&out);
    emitDocument(generator);
    generator.setIndent("");
    generator.flush();
    EXPECT_EQ(out.str(), k_withLineBreaks);
}

}  // namespace
