#ifndef ZO_TESSERA_TESTS_GENERATION_WRITTEN_H
#define ZO_TESSERA_TESTS_GENERATION_WRITTEN_H

#include <sstream>
#include <string>

#include <zo/Tessera/Generator.h>

enum class Layout { lineBreaks, oneLine };

/// The text that reaches the stream when `emit` is given a fresh generator.
template <class Emit>
std::string written(Layout layout, const Emit& emit) {
    std::ostringstream out;
    zo::Tessera::Generator generator(&out);
    if (layout == Layout::oneLine) {
        generator.setIndent("");
    }
    emit(generator);
    generator.flush();
    return out.str();
}

#endif
