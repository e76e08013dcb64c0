#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "documents/ScratchFolder.h"

// The page docs/conversions.md says of pieces of code whether they compile. All of them are put
// into one source, each on a line of its own, and a compiler says which lines it does not like.

namespace {

struct Piece {
    std::string code;
    bool compiles;
};

std::vector<std::string> split(const std::string& text, const std::string& separator) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (size_t end = 0; end != std::string::npos; start = end + separator.size()) {
        end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
    }
    return parts;
}

/// What stands between backticks.
std::vector<std::string> codeIn(const std::string& cell) {
    std::vector<std::string> code;
    const std::vector<std::string> parts = split(cell, "`");
    for (size_t i = 1; i < parts.size(); i += 2) {
        code.push_back(parts[i]);
    }
    return code;
}

/// The code of the page's tables, whose columns are: you write, what happens, write instead.
std::vector<Piece> readPage() {
    std::ifstream page(PROJECT_FOLDER "/docs/conversions.md");
    std::vector<Piece> pieces;
    for (std::string line; std::getline(page, line);) {
        const std::vector<std::string> cells = split(line, "|");
        if (cells.size() != 5) {
            continue;
        }
        const bool compiles = cells[2].find("does not compile") == std::string::npos;
        for (const std::string& code : codeIn(cells[1])) {
            pieces.push_back({code, compiles});
        }
        for (const std::string& code : codeIn(cells[3])) {
            pieces.push_back({code, true});
        }
    }
    return pieces;
}

const char* const k_includes = R"(
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <zo/Tessera.h>
#include <zo/convert.h>
using namespace zo::Tessera;
)";

/// Line `i` is that of the piece `i`, counted from 1.
std::string sourceOf(const std::vector<Piece>& pieces) {
    std::ostringstream source;
    source << k_includes << "#line 1 \"page\"\n";
    for (size_t i = 0; i < pieces.size(); ++i) {
        source << "void piece" << i
               << "(Element& e, const Element& c, Array& array, Object& object, Dom& document, "
                  "BasicNumber& n, bool& b, int& i, double& d, std::string& s, "
                  "const std::vector<int>& items) { { "
               << pieces[i].code << " } }\n";
    }
    return source.str();
}

struct Compiler {
    const char* name;
    const char* allErrors;  // what has it go on, however many there are
};

void PrintTo(const Compiler& compiler, std::ostream* out) {
    *out << compiler.name;
}

/// What a compiler says of a source file. An error within a template names, further down, the line
/// that asked for it.
std::string complaints(const Compiler& compiler, const std::string& standard,
                       const std::string& source) {
    const std::string report = source + ".report";
    const std::string command = std::string(compiler.name) + " -std=" + standard +
                                " -fsyntax-only -w " + compiler.allErrors +
                                " -I '" PROJECT_FOLDER "/include' -I '" PROJECT_FOLDER "/core' " +
                                source + " 2>" + report;
    EXPECT_NE(std::system(command.c_str()), -1);
    return contentsOf(report);
}

class ConversionsPage : public testing::TestWithParam<std::tuple<Compiler, const char*>> {};

TEST_P(ConversionsPage, SaysWhatCompilesAndWhatDoesNot) {
    const auto& [compiler, standard] = GetParam();
    if (std::system(("command -v " + std::string(compiler.name) + " >/dev/null").c_str()) != 0) {
        GTEST_SKIP() << compiler.name << " is not installed";
    }
    const std::vector<Piece> pieces = readPage();
    ASSERT_GT(pieces.size(), 100U);
    const ScratchFolder folder;
    putContents(folder / "pieces.cpp", sourceOf(pieces));
    const std::string report = complaints(compiler, standard, folder / "pieces.cpp");
    for (size_t i = 0; i < pieces.size(); ++i) {
        const std::string line = "page:" + std::to_string(i + 1) + ":";
        EXPECT_EQ(report.find(line) == std::string::npos, pieces[i].compiles) << pieces[i].code;
    }
    if (HasFailure()) {
        std::cout << report;
    }
}

INSTANTIATE_TEST_SUITE_P(Compiled, ConversionsPage,
                         testing::Combine(testing::Values(Compiler{"g++", "-fmax-errors=0"},
                                                          Compiler{"clang++", "-ferror-limit=0"}),
                                          testing::Values("c++17", "c++20")));

}  // namespace
