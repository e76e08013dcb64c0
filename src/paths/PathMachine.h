#ifndef ZO_TESSERA_SRC_PATHS_PATHMACHINE_H
#define ZO_TESSERA_SRC_PATHS_PATHMACHINE_H

#include <charconv>
#include <cstdint>
#include <string>

#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathParser.h>

#include "paths/pathText.h"

/// \file
/// The syntax of paths, written once for texts from streams and from memory.

namespace zo::Tessera {

/// "Unexpected character" or "Unexpexced EOF".
std::string unexpectedCharacter(char c);
/// The whole message of an error.
std::string pathErrorMessage(const std::string& message, const std::string& token,
                             std::uint64_t tokenStart, std::uint64_t position,
                             PathParser::EState state);

/// One run over a path text.
template <class Source>
class PathMachine {
public:
    /// `in` is the text from `position` on, which is its beginning or a place just after a segment.
    PathMachine(Source in, PathParserListener& listener, std::uint64_t position = 0)
        : m_in(in),
          m_listener(listener),
          m_position(position),
          m_tokenStart(position == 0 ? 0 : position - 1) {}

    void run() {
        bool escaped = false;  // the character before was a backslash
        while (m_in.good()) {
            const char c = m_in.get();
            PathCharacter kind = pathCharacter(c);
            if (escaped) {
                escaped = false;
                kind = isPlain(kind) ? kind : pcOther;
            } else if (kind == pcEnd) {
                break;
            } else if (kind == pcBackslash) {
                escaped = true;
                ++m_position;
                continue;
            }
            if (!parse(c, kind)) {
                return;
            }
            ++m_position;
        }
        parse(k_endOfPath, pcEnd);
    }

private:
    using EState = PathParser::EState;

    /// What a character does.
    enum EAction : unsigned char {
        acStop,         // ends the run
        acRefuse,       // is an error
        acFinish,       // ends the path between two segments
        acLastKey,      // ends the path and its last key
        acOpenKey,      // comes before a key
        acOpenIndex,    // comes before an index
        acNextKey,      // ends a key and comes before another
        acNextIndex,    // ends a key and comes before an index
        acBeginKey,     // is the first of a key
        acAppendKey,    // is a further one of a key
        acBeginIndex,   // is the first of an index
        acAppendIndex,  // is a further one of an index
        acEndIndex      // ends an index
    };

    // The syntax. A character after a backslash is a digit, a star or another one, never
    // punctuation.
    // clang-format off
    static constexpr EAction k_actions[6][7] = {
    //   digit          "*"           other        "."         "["          "]"         end of text
        {acBeginKey,    acBeginKey,   acBeginKey,  acOpenKey,  acOpenIndex, acRefuse,   acFinish},   // esInit
        {acBeginKey,    acBeginKey,   acBeginKey,  acRefuse,   acRefuse,    acRefuse,   acRefuse},   // esObjectInit
        {acAppendKey,   acAppendKey,  acAppendKey, acNextKey,  acNextIndex, acRefuse,   acLastKey},  // esObject
        {acBeginIndex,  acBeginIndex, acRefuse,    acRefuse,   acRefuse,    acRefuse,   acRefuse},   // esArrayInit
        {acAppendIndex, acRefuse,     acRefuse,    acRefuse,   acRefuse,    acEndIndex, acRefuse},   // esArray
        {acStop,        acStop,       acStop,      acStop,     acStop,      acStop,     acStop},     // esError
    };
    // clang-format on

    /// Does what the table says, and returns whether to go on.
    bool parse(char c, PathCharacter kind) {
        switch (k_actions[m_state][kind]) {
            case acStop:
                return false;
            case acRefuse:
                return parseError(c);
            case acLastKey:
                m_state = EState::esInit;
                // The path is finished whatever the answer is: listeners rely on it.
                signalObjectItem();
                [[fallthrough]];
            case acFinish:
                m_listener.cbFinish();
                return true;
            case acOpenKey:
                begin(EState::esObjectInit);
                return true;
            case acOpenIndex:
                begin(EState::esArrayInit);
                return true;
            case acNextKey:
                m_state = EState::esObjectInit;
                return signalObjectItem();
            case acNextIndex:
                m_state = EState::esArrayInit;
                return signalObjectItem();
            case acBeginKey:
                begin(EState::esObject);
                [[fallthrough]];
            case acAppendKey:
                m_position += m_in.appendTo(m_buffer, c);
                return true;
            case acBeginIndex:
                begin(EState::esArray);
                [[fallthrough]];
            case acAppendIndex:
                m_buffer.push_back(c);
                return true;
            case acEndIndex:
                m_state = EState::esInit;
                return signalListItem();
        }
        return false;
    }

    void begin(EState state) {
        m_state = state;
        m_tokenStart = m_position;
        m_buffer.clear();
    }

    bool signalObjectItem() {
        m_tokenStart = m_position;
        const bool goOn = m_listener.cbObjectProperty(m_buffer);
        m_buffer.clear();
        return goOn;
    }

    bool signalListItem() {
        const unsigned long index = readIndex();
        m_tokenStart = m_position;
        m_buffer.clear();
        return m_listener.cbArrayItem(index);
    }

    unsigned long readIndex() {
        // By its length in the text: a "*" that errors were dropped from is none.
        if (m_position - m_tokenStart == 1 && m_buffer.front() == '*') {
            return Path::k_noIndex;
        }
        unsigned long index = 0;
        const char* const end = m_buffer.data() + m_buffer.size();
        if (std::from_chars(m_buffer.data(), end, index).ec == std::errc()) {
            return index;
        }
        parseError(std::string("Unreadable index"));
        // Neither a place nor "*", which would append.
        return Path::k_noIndex - 1;
    }

    bool parseError(char c) { return parseError(unexpectedCharacter(c)); }

    bool parseError(const std::string& message) {
        if (report(m_listener, message, m_buffer, m_tokenStart, m_position, m_state)) {
            return true;
        }
        m_state = EState::esError;
        return false;
    }

    // Apart from the machine, so that its state can stay in registers.
    [[gnu::noinline]] static bool report(PathParserListener& listener, const std::string& message,
                                         const std::string& token, std::uint64_t tokenStart,
                                         std::uint64_t position, EState state) {
        return listener.cbParseError(pathErrorMessage(message, token, tokenStart, position, state),
                                     token, tokenStart, position);
    }

    Source m_in;
    PathParserListener& m_listener;
    EState m_state = EState::esInit;
    std::string m_buffer;        // the key or the index at hand
    std::uint64_t m_position;    // of the current character
    std::uint64_t m_tokenStart;  // where the key or the index at hand began, or the last one ended
};

}  // namespace zo::Tessera

#endif
