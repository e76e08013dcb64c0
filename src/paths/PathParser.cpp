#include <zo/Tessera/PathParser.h>

#include <ostream>

#include <zo/Tessera/Exception.h>

#include "paths/PathMachine.h"
#include "support/asciiText.h"

namespace zo::Tessera {

namespace {

Ascii stateName(PathParser::EState state) {
    static constexpr std::string_view names[] = {"esInit",      "esObjectInit", "esObject",
                                                 "esArrayInit", "esArray",      "esError"};
    return enumName(names, state, ">>INVALID<<");
}

}  // namespace

// Callers match on the texts, spelling included.
std::string unexpectedCharacter(char c) {
    return c == k_endOfPath ? std::string("Unexpexced EOF")
                            : std::string("Unexpected character '") + c + '\'';
}

std::string pathErrorMessage(const std::string& message, const std::string& token,
                             std::uint64_t tokenStart, std::uint64_t position,
                             PathParser::EState state) {
    return message + " in path at \"" + token + "\" " + std::to_string(tokenStart) + ',' +
           std::to_string(position) + " parser state " + std::string(stateName(state).text);
}

PathParserListener::~PathParserListener() = default;

void PathParserListener::cbFinish() {}

bool PathParserListener::cbParseError(const std::string& message, const std::string&,
                                      unsigned long tokenStart, unsigned long position) {
    throw ParseException(message, 1, static_cast<int>(tokenStart), 1, static_cast<int>(position));
}

PathParser::PathParser(PathParserListener& listener) : m_listener(listener) {}

std::istream& PathParser::parse(std::istream& in) {
    PathMachine(StreamSource(in), m_listener).run();
    return in;
}

void PathParser::parse(const std::string& text) {
    PathMachine(TextSource(text), m_listener).run();
}

std::ostream& operator<<(std::ostream& out, PathParser::EState state) {
    return out << stateName(state);
}

std::wostream& operator<<(std::wostream& out, PathParser::EState state) {
    return out << stateName(state);
}

}  // namespace zo::Tessera
