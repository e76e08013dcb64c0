#ifndef ZO_TESSERA_FUZZ_PATHREADER_H
#define ZO_TESSERA_FUZZ_PATHREADER_H

#include <cstddef>
#include <string>
#include <vector>

#include <zo/Tessera/Path.h>

/// \file
/// A second opinion on the syntax of paths.

struct Event {
    enum EKind { evKey, evItem, evFinish, evError };

    EKind kind;
    std::string text{};          // the key, or the whole message
    unsigned long index = 0;     // of an item; for an error where its token starts
    unsigned long position = 0;  // of an error
};

using Events = std::vector<Event>;

inline std::string shown(const Events& events) {
    static const char* const k_names[] = {"key", "item", "finish", "error"};
    std::string all;
    for (const Event& event : events) {
        all += std::string(k_names[event.kind]) + " " + event.text + " " +
               std::to_string(event.index) + "," + std::to_string(event.position) + "\n";
    }
    return all;
}

/// What a listener answers: to errors, and to the one segment that it does not want.
struct Answers {
    bool toErrors = false;
    size_t unwanted = 0;  // counted from 1; 0 for none
};

/// The events of a path text, read as a grammar has it: keys and indexes by turns.
class PathReader {
public:
    PathReader(const std::string& text, Answers answers) : m_answers(answers) {
        size_t place = 0;
        for (; place < text.size() && text[place] != k_endOfText; ++place) {
            const bool escaped = text[place] == '\\';
            place += escaped ? 1 : 0;
            m_units.push_back({place < text.size() ? text[place] : k_endOfText, escaped, place});
        }
        m_units.push_back({k_endOfText, false, place});
        while (readSegment()) {
        }
    }

    Events events;

private:
    static constexpr char k_endOfText = '\xFF';

    struct Unit {
        char c;
        bool escaped;
        size_t place;
    };

    const Unit& unit() const { return m_units[m_next]; }
    bool at(char c) const { return !unit().escaped && unit().c == c; }
    bool atPartOfKey() const { return !at('.') && !at('[') && !at(']') && !at(k_endOfText); }
    bool atDigit() const { return unit().c >= '0' && unit().c <= '9'; }

    bool readSegment() {
        while (at(']')) {
            if (!refuse("esInit")) {
                return false;
            }
        }
        if (at(k_endOfText)) {
            events.push_back({Event::evFinish});
            return false;
        }
        if (at('[')) {
            return readIndex();
        }
        if (at('.')) {
            m_tokenStart = unit().place;
            ++m_next;
            while (!atPartOfKey()) {
                if (!refuse("esObjectInit")) {
                    return false;
                }
            }
        }
        return readKey();
    }

    bool readKey() {
        m_tokenStart = unit().place;
        while (atPartOfKey() || at(']')) {
            if (!at(']')) {
                m_token += m_units[m_next++].c;
            } else if (!refuse("esObject")) {
                return false;
            }
        }
        const bool goOn = signal({Event::evKey, m_token});
        return goOn || at(k_endOfText);  // the end of the text follows a last key in any case
    }

    bool readIndex() {
        m_tokenStart = unit().place;
        ++m_next;
        while (!atDigit() && unit().c != '*') {
            if (!refuse("esArrayInit")) {
                return false;
            }
        }
        m_tokenStart = unit().place;
        m_token = m_units[m_next++].c;
        while (!at(']')) {
            if (atDigit()) {
                m_token += m_units[m_next++].c;
            } else if (!refuse("esArray")) {
                return false;
            }
        }
        unsigned long index = zo::Tessera::Path::k_noIndex;
        const bool star = m_token == "*" && unit().place == m_tokenStart + 1;
        const bool readable = star || readNumber(index);
        if (!readable) {
            error("Unreadable index", "esInit");
        }
        const bool goOn = signal({Event::evItem, "", index});
        ++m_next;
        return goOn && (readable || m_answers.toErrors);
    }

    bool readNumber(unsigned long& index) const {
        unsigned long value = 0;
        for (const char c : m_token) {
            const auto digit = static_cast<unsigned long>(c - '0');
            if (c == '*' || value > (zo::Tessera::Path::k_noIndex - digit) / 10) {
                index = zo::Tessera::Path::k_noIndex - 1;
                return false;
            }
            value = value * 10 + digit;
        }
        index = value;
        return true;
    }

    bool signal(const Event& event) {
        events.push_back(event);
        m_tokenStart = unit().place;
        m_token.clear();
        return ++m_segments != m_answers.unwanted;
    }

    bool refuse(const char* state) {
        error(unit().c == k_endOfText ? "Unexpexced EOF"
                                      : std::string("Unexpected character '") + unit().c + "'",
              state);
        if (at(k_endOfText) || !m_answers.toErrors) {
            return false;
        }
        ++m_next;
        return true;
    }

    void error(const std::string& what, const char* state) {
        events.push_back({Event::evError,
                          what + " in path at \"" + m_token + "\" " + std::to_string(m_tokenStart) +
                              "," + std::to_string(unit().place) + " parser state " + state,
                          m_tokenStart, unit().place});
    }

    Answers m_answers;
    std::vector<Unit> m_units;
    size_t m_next = 0;
    size_t m_tokenStart = 0;
    size_t m_segments = 0;
    std::string m_token;
};

inline Events readPath(const std::string& text, Answers answers = {}) {
    return PathReader(text, answers).events;
}

#endif
