// How fast whole documents are read, written, copied, compared and destroyed.
//
//     documents_bench [--benchmark_...] [FILE...]
//
// Without files it takes three made documents. The rows of a document:
//   tokenise  the same text through yajl with callbacks that do nothing, in the same pieces of 255
//             bytes: the floor under `read`
//   read      operator>> from a string stream into a document
//   readDocument   of the text in memory
//   write     operator<< into a string stream
//   writeDocument, compact   into a string, with its layout and without
//   copy, compare (with an equal copy), destroy

#include <benchmark/benchmark.h>
#include <yajl/yajl_parse.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera.h>

#include "madeDocuments.h"

using namespace zo::Tessera;

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void countBytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void readInto(Dom& document, const std::string& text) {
    std::istringstream in(text);
    in >> document;
}

const yajl_callbacks k_emptyCallbacks = {
    [](void*) { return 1; },
    [](void*, int) { return 1; },
    nullptr,
    nullptr,
    [](void*, const char*, size_t) { return 1; },
    [](void*, const unsigned char*, size_t) { return 1; },
    [](void*) { return 1; },
    [](void*, const unsigned char*, size_t) { return 1; },
    [](void*) { return 1; },
    [](void*) { return 1; },
    [](void*) { return 1; },
};

void tokenise(benchmark::State& state, const std::string& text) {
    constexpr size_t pieceLength = 255;
    for ([[maybe_unused]] auto iteration : state) {
        yajl_handle_t* const handle = yajl_alloc(&k_emptyCallbacks, nullptr, nullptr);
        yajl_config(handle, yajl_allow_comments, 1);
        yajl_config(handle, yajl_dont_validate_strings, 1);
        const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
        yajl_status status = yajl_status_ok;
        for (size_t at = 0; at < text.size() && status == yajl_status_ok; at += pieceLength) {
            status = yajl_parse(handle, bytes + at, std::min(pieceLength, text.size() - at));
        }
        yajl_free(handle);
        if (status != yajl_status_ok) {
            state.SkipWithError("yajl refuses the document");
        }
    }
    countBytes(state, text);
}

void read(benchmark::State& state, const std::string& text) {
    for ([[maybe_unused]] auto iteration : state) {
        Dom document;
        const Clock::time_point start = Clock::now();
        readInto(document, text);
        state.SetIterationTime(secondsSince(start));
    }
    countBytes(state, text);
}

void readWhole(benchmark::State& state, const std::string& text) {
    for ([[maybe_unused]] auto iteration : state) {
        const Clock::time_point start = Clock::now();
        const Dom document = readDocument(text);
        state.SetIterationTime(secondsSince(start));
    }
    countBytes(state, text);
}

template <bool Compact>
void writeWhole(benchmark::State& state, const std::string& text) {
    const Dom document = readDocument(text);
    WriteOptions options;
    options.compact = Compact;
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(writeDocument(document, options));
    }
    countBytes(state, text);
}

void write(benchmark::State& state, const std::string& text) {
    Dom document;
    readInto(document, text);
    for ([[maybe_unused]] auto iteration : state) {
        std::ostringstream out;
        out << document;
        benchmark::DoNotOptimize(out);
    }
    countBytes(state, text);
}

void copy(benchmark::State& state, const std::string& text) {
    Dom document;
    readInto(document, text);
    for ([[maybe_unused]] auto iteration : state) {
        const Clock::time_point start = Clock::now();
        Dom other(document);
        state.SetIterationTime(secondsSince(start));
        benchmark::DoNotOptimize(other);
    }
    countBytes(state, text);
}

void compare(benchmark::State& state, const std::string& text) {
    Dom document;
    readInto(document, text);
    const Dom other(document);
    for ([[maybe_unused]] auto iteration : state) {
        if (document != other) {
            state.SkipWithError("a copy differs");
        }
    }
    countBytes(state, text);
}

void destroy(benchmark::State& state, const std::string& text) {
    Dom document;
    readInto(document, text);
    for ([[maybe_unused]] auto iteration : state) {
        auto dying = std::make_unique<Dom>(document);
        const Clock::time_point start = Clock::now();
        dying.reset();
        state.SetIterationTime(secondsSince(start));
    }
    countBytes(state, text);
}

void registerRows(const MadeDocument& document) {
    using Row = void (*)(benchmark::State&, const std::string&);
    const auto add = [&](const char* what, Row row) {
        return benchmark::RegisterBenchmark(
                   (document.name + "/" + what).c_str(),
                   [row, text = document.text](benchmark::State& state) { row(state, text); })
            ->Unit(benchmark::kMillisecond);
    };
    add("tokenise", tokenise);
    add("read", read)->UseManualTime();
    add("readDocument", readWhole)->UseManualTime();
    add("write", write);
    add("writeDocument", writeWhole<false>);
    add("compact", writeWhole<true>);
    add("copy", copy)->UseManualTime();
    add("compare", compare);
    add("destroy", destroy)->UseManualTime();
}

MadeDocument fromFile(const std::string& name) {
    std::ifstream in(name, std::ios::binary);
    if (!in) {
        throw std::runtime_error("cannot open " + name);
    }
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return {name.substr(name.rfind('/') + 1), std::move(text)};
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    try {
        std::vector<MadeDocument> documents;
        for (int i = 1; i < argc; ++i) {
            documents.push_back(fromFile(argv[i]));
        }
        for (const MadeDocument& document : documents.empty() ? madeDocuments() : documents) {
            registerRows(document);
        }
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& error) {
        std::cerr << "documents_bench: " << error.what() << '\n';
        return 1;
    }
}
