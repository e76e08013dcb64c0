#include "growth.h"

#include <sstream>

std::string repeated(std::size_t count, const std::string& text) {
    std::string result;
    result.reserve(count * text.size());
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

Owner read(const std::string& text) {
    std::istringstream in(text);
    zo::Tessera::Dom document;
    in >> document;
    require(document.root() != nullptr, "the text was not read");
    return document.takeRoot();
}

void registerRow(const char* name, void (*row)(State&), std::int64_t smaller, std::int64_t larger) {
    benchmark::RegisterBenchmark(name, row)->Arg(smaller)->Arg(larger)->UseManualTime()->Unit(
        benchmark::kMillisecond);
}
