#ifndef ZO_TESSERA_FUZZ_EVENTLIST_H
#define ZO_TESSERA_FUZZ_EVENTLIST_H

#include <cstdio>
#include <string>
#include <vector>

#include <zo/Tessera/CallbackParser.h>

/// Writes the events of a JSON text down, so that equal lists mean equal events.
class EventList : public zo::Tessera::CallbackParserListener {
public:
    explicit EventList(bool numbersAsText) : m_numbersAsText(numbersAsText) {}

    int cb_null() override { return note("null"); }
    int cb_boolean(bool value) override { return note(value ? "true" : "false"); }
    int cb_number(const char* text, size_t length) override {
        return note("number " + std::string(text, length));
    }
    int cb_string(const char* text, size_t length) override {
        return note("string " + std::string(text, length));
    }
    int cb_start_map() override { return note("start_map"); }
    int cb_map_key(const char* text, size_t length) override {
        return note("key " + std::string(text, length));
    }
    int cb_end_map() override { return note("end_map"); }
    int cb_start_array() override { return note("start_array"); }
    int cb_end_array() override { return note("end_array"); }
    int cb_integer(long long value) override { return note("integer " + std::to_string(value)); }
    int cb_double(double value) override {
        char text[40];
        std::snprintf(text, sizeof text, "double %a", value);
        return note(text);
    }
    int cb_error(const char* message) override {
        m_errors.emplace_back(message);
        return 0;
    }
    bool use_number_callback() override { return m_numbersAsText; }

    std::vector<std::string> m_events;
    std::vector<std::string> m_errors;

protected:
    /// Called at each event; the answer is the event's.
    virtual int note(const std::string& event) {
        m_events.push_back(event);
        return 1;
    }

private:
    bool m_numbersAsText;
};

/// What an error message says of the error. The lines behind it show the text around it, as far as
/// it stands in the same piece.
inline std::string firstLine(const std::string& message) {
    return message.substr(0, message.find('\n'));
}

#endif
