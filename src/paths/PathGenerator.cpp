#include <zo/Tessera/PathGenerator.h>

#include <locale>
#include <ostream>
#include <sstream>

#include <zo/Tessera/Path.h>

#include "support/asciiText.h"
#include "support/classicLocale.h"

namespace zo::Tessera {

namespace {

Ascii stateName(PathGenerator::EState state) {
    static constexpr std::string_view names[] = {"esInit", "esObject", "esArray", "esError"};
    return enumName(names, state, ">>INVALID<<");
}

/// In the number base set on `out`, if there is a stream, but never grouped by its locale: the path
/// must read back.
std::string indexText(const std::ostream* out, unsigned long index) {
    if (!out) {
        return std::to_string(index);
    }
    std::ostringstream text = classicStream();
    text.flags(out->flags());
    text << index;
    return text.str();
}

}  // namespace

PathGenerator::PathGenerator(std::ostream& out) : m_stream(&out) {}

PathGenerator::PathGenerator(std::string& text) : m_text(&text) {}

void PathGenerator::genObjectProperty(const std::string& name) {
    genObjectProperty(zo::StringRef<char>(name.data(), name.size()));
}

void PathGenerator::genObjectProperty(const zo::StringRef<char>& name) {
    // Put together first: the name may be a part of the text that is written to.
    std::string segment;
    if (m_state != esInit) {
        segment += '.';
    }
    for (const char c : name) {
        if (Path::k_escapeChars.find(c) != std::string::npos) {
            segment += '\\';
        }
        segment += c;
    }
    put(segment);
    m_state = esObject;
}

void PathGenerator::genListItem(unsigned long index) {
    put('[' + (index == Path::k_noIndex ? "*" : indexText(m_stream, index)) + ']');
    m_state = esArray;
}

void PathGenerator::put(const std::string& segment) {
    if (m_text) {
        *m_text += segment;
        return;
    }
    for (const char c : segment) {
        *m_stream << c;
    }
}

std::ostream& operator<<(std::ostream& out, PathGenerator::EState state) {
    return out << stateName(state);
}

std::wostream& operator<<(std::wostream& out, PathGenerator::EState state) {
    return out << stateName(state);
}

}  // namespace zo::Tessera
