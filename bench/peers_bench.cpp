// This library beside its peers, on the same text in memory.
//
//     peers_bench [--large] [--benchmark_...] [FILE...]
//     peers_bench --missing
//
// Documents are the files and three made ones. `--missing` prints the names of the libraries that
// were not found when this was built. Without `--large` rows of 10,000,000 elements, and for other
// libraries those of a million, are left out. A library that refuses a document has no rows of it;
// an answer that is wrong is an error, and no row.
//
// Rows are named GROUP/ROW/LIBRARY. The group of a document's rows is its name:
//   read, read_destroy   from the text in memory; without and with the end of the tree. "yajl" only
//                        tokenises, in the pieces in which this library's stream operator reads
//   read_whole           by readDocument, without the end of the tree
//   write                in the library's usual readable layout; "yajl" drives its generator with
//                        the document's events
//   compact              without blanks
//   round_trip           read, write without blanks and destroy; this library does it by its stream
//                        operators, which break lines
//   round_trip_whole     the same by readDocument and writeDocument
//   copy                 without the end of the copy
//   compare              with an equal copy
//   destroy, iterate     over every element
//   lookup:{1,4,8}       up to 64 paths of so many segments, from their texts
//   {integers,doubles}_{first,again}   every such number of the document, gathered in one array,
//                        as a long long or a double, after it was read and once more
//   ..._derived          the same by the conversions that keep a binary form
// `read` also tells the heap: what the tree holds and the most while it is read. Other groups:
//   members:N/{find,missing}   members of an object by their keys, up to 1000 of them
//   paths:KIND:N/{hit,last_missing,first_missing}:{1,4,8}   one path: see groups/pathDocuments.h
//   build/small          1000 objects of ten members, by hand
//   append:N/numbers     an array of N numbers, one by one
//   replace/1000         the values of 1000 members and of 1000 items
//   remove/1000          every second of 1000 members
//   scale:N/{read_destroy,copy,destroy,append}   about N elements; `each` is the time of one
//
// glibc puts off some of the cost of giving memory back, and charges it to who comes next: only
// figures from processes of their own can be compared.
//
//     peers_bench --benchmark_filter='^texts/read_destroy/jsoncpp$'
//
// Under callgrind with --collect-atstart=no only what is measured is collected.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <list>
#include <regex>
#include <stdexcept>
#include <string>

#include "Subject.h"
#include "groups/Groups.h"
#include "libraries/Library.h"
#include "madeDocuments.h"
#include "rows/Row.h"

namespace {

/// The rows that the filter of the command line asks for.
class Selection {
public:
    Selection() {
        std::string pattern = benchmark::GetBenchmarkFilter();
        m_inverted = !pattern.empty() && pattern.front() == '-';
        if (m_inverted) {
            pattern.erase(0, 1);
        }
        m_pattern = std::regex(pattern == "all" ? "" : pattern, std::regex::extended);
    }

    bool holds(const Row& row) const {
        return std::regex_search(row.name, m_pattern) != m_inverted;
    }

private:
    std::regex m_pattern;
    bool m_inverted;
};

bool failed = false;

void report(const std::string& what, const std::string& why) {
    std::cerr << "peers_bench: " << what << ": " << why << '\n';
    failed = true;
}

void registerRow(const Row& row) {
    const auto guarded = [run = row.run, name = row.name](benchmark::State& state) {
        try {
            run(state);
        } catch (const std::exception& error) {
            report(name, error.what());
            state.SkipWithError(error.what());
        }
    };
    benchmark::RegisterBenchmark(row.name.c_str(), guarded)->Unit(row.unit);
}

Rows wantedOf(const Rows& rows, const Selection& selection) {
    Rows wanted;
    for (const Row& row : rows) {
        if (selection.holds(row)) {
            wanted.push_back(row);
        }
    }
    return wanted;
}

void registerRows(const Rows& rows) {
    for (const Row& row : rows) {
        if (!row.applies || row.applies()) {
            registerRow(row);
        }
    }
}

/// Reads the document with the library only if one of its rows is wanted: what that leaves in the
/// heap of a process that runs a single row is then that library's own.
void registerDocumentRows(const Library& library, const Subject& subject,
                          const Selection& selection) {
    const Rows wanted = wantedOf(library.documentRows(subject), selection);
    if (wanted.empty()) {
        return;
    }
    try {
        library.read(subject.text());
    } catch (const std::exception& error) {
        std::cerr << "peers_bench: " << library.name << " refuses " << subject.name() << ": "
                  << error.what() << '\n';
        return;
    }
    registerRows(wanted);
}

std::ifstream opened(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot open " + file);
    }
    return in;
}

std::string contentsOf(const std::string& file) {
    std::ifstream in = opened(file);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string nameOf(const std::string& file) {
    const std::string suffix = ".json";
    std::string name = file.substr(file.rfind('/') + 1);
    if (name.size() > suffix.size() &&
        name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0) {
        name.resize(name.size() - suffix.size());
    }
    return name;
}

const std::string& madeText(std::size_t index) {
    static const std::vector<MadeDocument> documents = madeDocuments();
    return documents.at(index).text;
}

std::list<Subject> subjects(int argc, char** argv) {
    std::list<Subject> result;
    for (int i = 1; i < argc; ++i) {
        const std::string file = argv[i];
        opened(file);
        result.emplace_back(nameOf(file), [file] { return contentsOf(file); });
    }
    std::size_t index = 0;
    for (const char* const name : k_madeDocuments) {
        result.emplace_back(name, [index] { return madeText(index); });
        ++index;
    }
    return result;
}

bool takeFlag(int& argc, char** argv, const std::string& flag) {
    char** const end = std::remove(argv + 1, argv + argc, flag);
    const bool isThere = end != argv + argc;
    argc = static_cast<int>(end - argv);
    return isThere;
}

void printMissing() {
    for (const std::string& name : missingLibraries()) {
        std::cout << name << '\n';
    }
}

void run(const std::list<Subject>& documents, const Groups& groups) {
    const Selection selection;
    for (const Subject& document : documents) {
        for (const Library& library : libraries()) {
            registerDocumentRows(library, document, selection);
        }
    }
    for (const Library& library : libraries()) {
        registerRows(wantedOf(library.groupRows(groups), selection));
    }
    benchmark::RunSpecifiedBenchmarks();
}

}  // namespace

int main(int argc, char** argv) {
    if (takeFlag(argc, argv, "--missing")) {
        printMissing();
        return 0;
    }
    const bool large = takeFlag(argc, argv, "--large");
    benchmark::Initialize(&argc, argv);
    try {
        run(subjects(argc, argv), Groups(large));
    } catch (const std::exception& error) {
        report("stopped", error.what());
    }
    return failed ? 1 : 0;
}
