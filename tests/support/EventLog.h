#ifndef ZO_TESSERA_TESTS_SUPPORT_EVENTLOG_H
#define ZO_TESSERA_TESTS_SUPPORT_EVENTLOG_H

#include <functional>
#include <string>

#include <zo/Tessera/CallbackParser.h>

#include "support/classicText.h"

/// Writes the events of a JSON text down, each followed by ';', for example
/// `start_map;key a;number 1.50;end_map;`. `atEvent`, when set, is called at each event and gives
/// its answer, or throws.
class EventLog : public zo::Tessera::CallbackParserListener {
public:
    explicit EventLog(bool numbersAsText = true) : m_numbersAsText(numbersAsText) {}

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
    int cb_error(const char* message) override {
        errors += message;
        return errorAnswer;
    }
    int cb_integer(long long value) override { return note("integer " + std::to_string(value)); }
    int cb_double(double value) override { return note(classicText("double ", std::fixed, value)); }
    bool use_number_callback() override { return m_numbersAsText; }

    std::string events;
    std::string errors;
    int errorAnswer = 0;
    std::function<int()> atEvent;

private:
    int note(const std::string& event) {
        events += event + ";";
        return atEvent ? atEvent() : 1;
    }

    bool m_numbersAsText;
};

#endif
