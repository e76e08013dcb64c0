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

PathGenerator::PathGenerator(std::ostream& out) : m_out(out) {}

void PathGenerator::genObjectProperty(const std::string& name) {
    genObjectProperty(zo::StringRef<char>(name.data(), name.size()));
}

void PathGenerator::genObjectProperty(const zo::StringRef<char>& name) {
    if (m_state != esInit) {
        m_out << '.';
    }
    for (const char c : name) {
        if (Path::k_escapeChars.find(c) != std::string::npos) {
            m_out << '\\';
        }
        m_out << c;
    }
    m_state = esObject;
}

void PathGenerator::genListItem(unsigned long index) {
    m_out << '[';
    if (index == Path::k_noIndex) {
        m_out << '*';
    } else {
        m_out << formattedIndex(m_out, index);
    }
    m_out << ']';
    m_state = esArray;
}

std::ostream& operator<<(std::ostream& out, PathGenerator::EState state) {
    return out << stateName(state);
}

std::wostream& operator<<(std::wostream& out, PathGenerator::EState state) {
    return out << stateName(state);
}

}  // namespace zo::Tessera
