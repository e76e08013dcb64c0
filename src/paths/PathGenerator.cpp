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

/// In the number base set on `out`, but never grouped by its locale: the path must read back.
std::string formattedIndex(const std::ostream& out, unsigned long index) {
    std::ostringstream text = classicStream();
    text.flags(out.flags());
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
    if (m_state != esInit) {
        put('.');
    }
    for (const char c : name) {
        if (Path::k_escapeChars.find(c) != std::string::npos) {
            put('\\');
        }
        put(c);
    }
    m_state = esObject;
}

void PathGenerator::genListItem(unsigned long index) {
    put('[');
    if (index == Path::k_noIndex) {
        put('*');
    } else if (m_stream) {
        *m_stream << formattedIndex(*m_stream, index);
    } else {
        *m_text += std::to_string(index);
    }
    put(']');
    m_state = esArray;
}

void PathGenerator::put(char c) {
    if (m_stream) {
        *m_stream << c;
    } else {
        m_text->push_back(c);
    }
}

std::ostream& operator<<(std::ostream& out, PathGenerator::EState state) {
    return out << stateName(state);
}

std::wostream& operator<<(std::wostream& out, PathGenerator::EState state) {
    return out << stateName(state);
}

}  // namespace zo::Tessera
