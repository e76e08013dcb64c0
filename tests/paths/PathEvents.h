#ifndef ZO_TESSERA_TESTS_PATHS_PATHEVENTS_H
#define ZO_TESSERA_TESTS_PATHS_PATHEVENTS_H

#include <functional>
#include <sstream>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <zo/Tessera/PathParser.h>

/// Overrides what a listener must, and nothing else.
class SegmentsOnly : public zo::Tessera::PathParserListener {
public:
    bool cbObjectProperty(const std::string& key) override {
        segments += " key " + key;
        return true;
    }
    bool cbArrayItem(unsigned long index) override {
        segments += " item " + std::to_string(index);
        return true;
    }

    std::string segments;
};

enum class Errors { refused, accepted };

/// Writes down what a path parser reports, for example `key a; item 2; finish`, and each error with
/// its whole message as `error <message>`. To the segment that reads like `unwanted` it answers
/// false. `atEvent`, when set, is called at each event, after it is written down, and may throw.
class PathEvents : public zo::Tessera::PathParserListener {
public:
    explicit PathEvents(Errors errors, std::string unwanted = "")
        : m_errors(errors), m_unwanted(std::move(unwanted)) {}

    bool cbObjectProperty(const std::string& key) override { return segment("key " + key); }
    bool cbArrayItem(unsigned long index) override {
        return segment("item " + std::to_string(index));
    }
    void cbFinish() override { note("finish"); }
    bool cbParseError(const std::string& message, const std::string&, unsigned long,
                      unsigned long) override {
        note("error " + message);
        return m_errors == Errors::accepted;
    }

    std::string events;
    std::function<void()> atEvent;

private:
    bool segment(const std::string& event) {
        note(event);
        return event != m_unwanted;
    }
    void note(const std::string& event) {
        if (!events.empty()) {
            events += "; ";
        }
        events += event;
        if (atEvent) {
            atEvent();
        }
    }

    Errors m_errors;
    std::string m_unwanted;
};

/// What such a listener hears of `text`; both entrances must tell it alike.
inline std::string eventsOf(const std::string& text, Errors errors = Errors::refused,
                            const std::string& unwanted = "") {
    PathEvents fromStream(errors, unwanted);
    std::istringstream in(text);
    zo::Tessera::PathParser(fromStream).parse(in);

    PathEvents fromMemory(errors, unwanted);
    zo::Tessera::PathParser(fromMemory).parse(text);
    EXPECT_EQ(fromMemory.events, fromStream.events);
    return fromStream.events;
}

/// What a stream still holds, whatever state it is in.
inline std::string restOf(std::istream& in) {
    in.clear();
    std::ostringstream rest;
    for (int c = in.get(); c != std::istream::traits_type::eof(); c = in.get()) {
        rest.put(static_cast<char>(c));
    }
    return rest.str();
}

#endif
