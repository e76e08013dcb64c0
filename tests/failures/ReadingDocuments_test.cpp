#include <zo/Tessera/readDocument.h>

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zo/Tessera/Dom.h>
#include <zo/Tessera/Exception.h>

#include "failures/outOfMemory.h"
#include "failures/richTree.h"
#include "support/dump.h"
#include "support/rowName.h"

using namespace zo::Tessera;

namespace {

/// A file of the test's own that holds `text`.
class File {
public:
    explicit File(const std::string& text) {
        const int file = mkstemp(m_name.data());
        const bool isWritten = file != -1 && ::write(file, text.data(), text.size()) ==
                                                 static_cast<ssize_t>(text.size());
        if (!isWritten || ::close(file) != 0) {
            throw std::runtime_error("no file can be made like " + m_name);
        }
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { ::unlink(m_name.c_str()); }

    const std::string& name() const { return m_name; }

private:
    std::string m_name = std::filesystem::temp_directory_path() / "tessera-test-XXXXXX";
};

/// A way to read a text.
struct Entrance {
    const char* name;
    /// Prepares the reading of a text, which may allocate as it likes; the reading may not.
    std::function<std::function<Dom()>(const std::string& text, const ReadOptions& options)> enter;
};

const Entrance k_memory = {"Memory", [](const std::string& text, const ReadOptions& options) {
                               return [text, options] { return readDocument(text, options); };
                           }};
const Entrance k_stream = {"Stream", [](const std::string& text, const ReadOptions& options) {
                               const auto in = std::make_shared<std::istringstream>(text);
                               return [in, options] { return readDocument(*in, options); };
                           }};
const Entrance k_file = {"File", [](const std::string& text, const ReadOptions& options) {
                             const auto file = std::make_shared<File>(text);
                             return [file, options] {
                                 return readDocumentFile(file->name(), options);
                             };
                         }};

/// With names, strings and numbers that allocate, comments, and a member that is replaced.
std::string richText() {
    std::string text = R"({"$": {"inner": [null, true, {"$": {}}]}, "text": "a\n$", /* $ */
        "number": 0.12345678901234567890123456789, "text": ["$", {"$": -1.5e3}], // $
        "deep": [[[[{"a": {"b": {"c": "\u00e9"}}}]]]], "meta": {"schema": "$"}})";
    for (size_t at = text.find('$'); at != std::string::npos; at = text.find('$', at)) {
        text.replace(at, 1, k_long);
    }
    return text;
}

class OutOfMemoryInReadDocument : public testing::TestWithParam<Entrance> {};

TEST_P(OutOfMemoryInReadDocument, IsThrownAndNothingElse) {
    std::function<Dom()> read;
    std::unique_ptr<Dom> document;
    const auto prepare = [&] {
        document = std::make_unique<Dom>();
        read = GetParam().enter(richText(), ReadOptions());
    };
    const auto check = [&] { EXPECT_EQ(document->root(), nullptr); };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { *document = read(); }, check),
              40);
    expectWhole(*document->root());
    EXPECT_EQ(dump(*document->root()), dump(*readDocument(richText()).root()));
}

TEST_P(OutOfMemoryInReadDocument, IsThrownOfALongText) {
    // Several pieces of a stream, and a string that goes on in each of them.
    const std::string text = std::string(70000, ' ') + "[\"" + std::string(300000, 'a') + "\", 12";
    std::function<Dom()> read;
    std::unique_ptr<Dom> document;
    const auto prepare = [&] {
        document = std::make_unique<Dom>();
        read = GetParam().enter(text + ']', ReadOptions());
    };
    const auto check = [&] { EXPECT_EQ(document->root(), nullptr); };
    EXPECT_GT(failEachAllocation(
                  prepare, [&] { *document = read(); }, check),
              5);
    EXPECT_EQ(document->root()->size(), 2U);
}

/// A text that is refused, with the options that refuse it.
struct Refused {
    const char* name;
    std::string text;
    ReadOptions options;
};

std::vector<Refused> refusedTexts() {
    const std::string open = "{\"" + k_long + "\": [0, {\"" + k_long + "\": \"" + k_long + "\", ";
    ReadOptions strict;
    strict.greatestDepth = 3;
    strict.refuseDuplicateKeys = true;
    strict.checkUtf8 = true;
    return {{"NoToken", open + "x", {}},
            {"NoJson", open + "]", {}},
            {"End", open, {}},
            {"EndInAString", open + '"' + k_long, {}},
            {"EndInAComment", open + "/*" + k_long, {}},
            {"CommentBehind", "[\"" + k_long + "\"] /*" + k_long, {}},
            {"TextBehind", "[\"" + k_long + "\"] " + k_long, {}},
            {"OddBlank", open + '\v', {}},
            {"DuplicateKey", open + '"' + k_long + "\": 1", strict},
            {"Depth", open + "\"a\": [", strict},
            {"NoUtf8", open + "\"\xFF", strict}};
}

// No refusal is lost or changed by a want of memory: it is told, or the want of memory is.
TEST_P(OutOfMemoryInReadDocument, IsThrownOrTheTextIsRefusedAsEver) {
    for (const Refused& row : refusedTexts()) {
        SCOPED_TRACE(row.name);
        std::string expected;
        std::function<Dom()> read;
        std::string message;
        const auto prepare = [&] {
            message.clear();
            read = GetParam().enter(row.text, row.options);
        };
        const auto refuse = [&] {
            try {
                read();
            } catch (const ParseException& refusal) {
                message = refusal.message();
            }
        };
        const long failures = failEachAllocation(prepare, refuse, [&] { EXPECT_EQ(message, ""); });
        EXPECT_GT(failures, 10);
        try {
            readDocument(row.text, row.options);
        } catch (const ParseException& refusal) {
            expected = refusal.message();
        }
        EXPECT_NE(expected, "");
        EXPECT_EQ(message.substr(message.find("element")),
                  expected.substr(expected.find("element")));
    }
}

INSTANTIATE_TEST_SUITE_P(Entrances, OutOfMemoryInReadDocument,
                         testing::Values(k_memory, k_stream, k_file), k_rowName);

TEST(OutOfMemoryInReadDocument, IsThrownForAFileThatIsNotThere) {
    std::string message;
    const auto refuse = [&] {
        try {
            readDocumentFile("/there is no such folder/and no such file");
        } catch (const ParseException& refusal) {
            message = refusal.message();
        }
    };
    const auto prepare = [&] { message.clear(); };
    const auto check = [&] { EXPECT_EQ(message, ""); };
    EXPECT_GT(failEachAllocation(prepare, refuse, check), 3);
    EXPECT_EQ(message,
              "Cannot read \"/there is no such folder/and no such file\": "
              "No such file or directory");
}

}  // namespace
