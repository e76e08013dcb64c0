// Disturbs the reading of a text at one event, or at its error, in each way that a listener can.

#include <clocale>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <zo/Tessera.h>

#include "EventList.h"
#include "Input.h"
#include "ModelBuilder.h"
#include "ModelTree.h"
#include "check.h"

using namespace zo::Tessera;

namespace {

constexpr int k_statusOk = 0;
constexpr int k_statusCancelled = 1;
constexpr int k_statusError = 2;
constexpr int k_accepted = -7;
// Each piece behind an error brings it again; a few of them show how.
constexpr size_t k_mostErrors = 4;
const char* const k_cancelled = "parse error: client cancelled parse via callback return value";

/// Thrown by listeners; of no class that the library knows.
struct Disturbance {
    size_t m_event;
};

/// The script's first two bytes.
struct Plan {
    enum Deed { stopAndRefuse, stopAndAccept, stopAndThrow, throwAtOnce };
    static constexpr size_t k_bytes = 2;

    explicit Plan(const Input& input)
        : m_event(input.scripted(0)),
          m_deed(static_cast<Deed>(input.scripted(1) % 4)),
          m_numbersAsText(input.scripted(1) / 4 % 2 == 0) {}

    /// What happens at the event number `count`: whether it answers 0.
    bool disturb(size_t count) const {
        if (count == m_event && m_deed == throwAtOnce) {
            throw Disturbance{m_event};
        }
        return count == m_event;
    }

    int answerToError() const {
        if (m_deed == stopAndThrow) {
            throw Disturbance{m_event};
        }
        return m_deed == stopAndAccept ? k_accepted : 0;
    }

    size_t m_event;  // counted from 1; 0 for none
    Deed m_deed;
    bool m_numbersAsText;
};

/// The tokeniser converts numbers under a locale of its own, which nobody else may see.
void checkLocale() {
    check(uselocale(nullptr) == LC_GLOBAL_LOCALE, "the caller's locale is in force");
}

class DisturbedList : public EventList {
public:
    explicit DisturbedList(const Plan& plan) : EventList(plan.m_numbersAsText), m_plan(plan) {}

    int cb_error(const char* message) override {
        EventList::cb_error(message);
        const int answer = m_plan.answerToError();
        if (answer != 0) {
            m_acceptedErrors.push_back(message);
        }
        return answer;
    }

    /// What was accepted may be looked at for as long as the parser lives.
    void checkAcceptedErrors() const {
        for (size_t i = 0; i < m_acceptedErrors.size(); ++i) {
            checkSame(m_acceptedErrors[i], m_errors[i], "the text of an accepted error");
        }
    }

private:
    int note(const std::string& event) override {
        checkLocale();
        EventList::note(event);
        return m_plan.disturb(m_events.size()) ? 0 : 1;
    }

    const Plan& m_plan;
    std::vector<const char*> m_acceptedErrors;
};

/// What comes of a text when nobody disturbs.
struct Reference {
    Reference(const std::vector<std::string_view>& pieces, bool numbersAsText) {
        EventList listener(numbersAsText);
        CallbackParser parser(&listener);
        try {
            for (const std::string_view piece : pieces) {
                parser.parse(piece.data(), piece.size());
                m_eventsByPiece.push_back(listener.m_events.size());
            }
        } catch (const Exception& error) {
            m_eventsByPiece.push_back(listener.m_events.size());
            m_error = firstLine(error.what());
        }
        m_events = std::move(listener.m_events);
    }

    std::vector<std::string> m_events;
    std::vector<size_t> m_eventsByPiece;  // their number after each piece, one with an error last
    std::string m_error;                  // empty when there is none
};

/// What should come of it under a plan.
struct Expectation {
    Expectation(const Reference& reference, const Plan& plan) {
        const size_t all = reference.m_events.size();
        m_disturbed = plan.m_event > 0 && plan.m_event <= all;
        m_events = m_disturbed ? plan.m_event : all;
        m_thrownAtOnce = m_disturbed && plan.m_deed == Plan::throwAtOnce;
        m_error = m_disturbed ? k_cancelled : reference.m_error;
    }

    bool fails() const { return !m_error.empty(); }

    bool m_disturbed;
    bool m_thrownAtOnce;
    size_t m_events;
    std::string m_error;
};

void checkEvents(const DisturbedList& listener, const Reference& reference, size_t count) {
    check(listener.m_events.size() == count, "the number of events");
    for (size_t i = 0; i < count; ++i) {
        checkSame(listener.m_events[i], reference.m_events[i], "event");
    }
}

/// How the error came back is how the listener answered it.
template <class Parse>
void checkFailure(const Plan& plan, const Expectation& expected, const DisturbedList& listener,
                  const Parse& parse) {
    const size_t errors = listener.m_errors.size();
    try {
        const int answer = parse();
        check(plan.m_deed == Plan::stopAndAccept, "an error is returned if it was accepted");
        check(answer == k_accepted, "the answer to the error");
    } catch (const Exception& error) {
        check(plan.m_deed == Plan::stopAndRefuse ||
                  (plan.m_deed == Plan::throwAtOnce && !expected.m_thrownAtOnce),
              "an error is thrown if it was refused");
        checkSame(error.what(), listener.m_errors.back(), "what is thrown is what was told of");
    } catch (const Disturbance& disturbance) {
        check(plan.m_deed == Plan::stopAndThrow || expected.m_thrownAtOnce,
              "the listener's exception arrives if it threw one");
        check(disturbance.m_event == plan.m_event, "the listener's own exception");
    }
    check(listener.m_errors.size() > errors || expected.m_thrownAtOnce, "the error is told of");
    if (!listener.m_errors.empty()) {
        checkSame(firstLine(listener.m_errors.back()), expected.m_error, "the error");
    }
}

int statusAtFailure(const Expectation& expected) {
    if (expected.m_thrownAtOnce) {
        return k_statusOk;
    }
    return expected.m_disturbed ? k_statusCancelled : k_statusError;
}

/// What an exception has left half done may be gone on with, whatever comes of it.
void goOnAnyhow(CallbackParser& parser, std::string_view piece) {
    try {
        const int answer = parser.parse(piece.data(), piece.size());
        check((answer == 0) == (parser.state() == k_statusOk), "answer and status");
    } catch (const Exception&) {
        check(parser.state() != k_statusOk, "status after an exception");
    }
}

void checkPieces(const Input& input, const Plan& plan) {
    const std::vector<std::string_view> pieces = inPieces(input, Plan::k_bytes);
    const Reference reference(pieces, plan.m_numbersAsText);
    const Expectation expected(reference, plan);
    DisturbedList listener(plan);
    CallbackParser parser(&listener);
    bool failed = false;
    for (size_t i = 0; i < pieces.size() && listener.m_errors.size() < k_mostErrors; ++i) {
        const std::string_view piece = pieces[i];
        const auto parse = [&] { return parser.parse(piece.data(), piece.size()); };
        const bool lastOfReference = i + 1 == reference.m_eventsByPiece.size();
        const bool fails = expected.m_disturbed
                               ? !failed && reference.m_eventsByPiece[i] >= plan.m_event
                               : !failed && expected.fails() && lastOfReference;
        if (failed && expected.m_thrownAtOnce) {
            goOnAnyhow(parser, piece);
        } else if (failed || fails) {
            checkFailure(plan, expected, listener, parse);
            check(parser.state() == (failed ? k_statusError : statusAtFailure(expected)), "status");
            checkEvents(listener, reference, expected.m_events);
        } else {
            check(parse() == 0 && parser.state() == k_statusOk, "nothing has happened yet");
            checkEvents(listener, reference, reference.m_eventsByPiece[i]);
        }
        failed = failed || fails;
        checkLocale();
    }
    listener.checkAcceptedErrors();
    check(failed == expected.fails(), "a failure where there should be one");
}

void checkStream(const Input& input, const Plan& plan) {
    const Reference reference({input.m_text}, plan.m_numbersAsText);
    const Expectation expected(reference, plan);
    DisturbedList listener(plan);
    CallbackParser parser(&listener);
    std::istringstream in{std::string(input.m_text)};
    const auto parse = [&] {
        parser.parse(in);
        return k_accepted;
    };
    if (expected.fails()) {
        checkFailure(plan, expected, listener, parse);
    } else {
        parse();
        check(listener.m_errors.empty(), "no error");
    }
    checkEvents(listener, reference, expected.m_events);
}

/// A document's parser that a plan disturbs. The event where it does so builds nothing.
class DisturbedParser : public DomParser {
public:
    explicit DisturbedParser(const Plan& plan) : m_plan(plan) {}

    int cb_null() override { return stops() ? 0 : DomParser::cb_null(); }
    int cb_boolean(bool value) override { return stops() ? 0 : DomParser::cb_boolean(value); }
    int cb_number(const char* text, size_t length) override {
        return stops() ? 0 : DomParser::cb_number(text, length);
    }
    int cb_string(const char* text, size_t length) override {
        return stops() ? 0 : DomParser::cb_string(text, length);
    }
    int cb_start_map() override { return stops() ? 0 : DomParser::cb_start_map(); }
    int cb_map_key(const char* text, size_t length) override {
        return stops() ? 0 : DomParser::cb_map_key(text, length);
    }
    int cb_end_map() override { return stops() ? 0 : DomParser::cb_end_map(); }
    int cb_start_array() override { return stops() ? 0 : DomParser::cb_start_array(); }
    int cb_end_array() override { return stops() ? 0 : DomParser::cb_end_array(); }
    int cb_error(const char* message) override {
        const int answer = m_plan.answerToError();
        return answer != 0 ? answer : DomParser::cb_error(message);
    }

private:
    bool stops() { return m_plan.disturb(++m_events); }

    const Plan& m_plan;
    size_t m_events = 0;
};

/// "": nothing was thrown; the error's first line; or what stands for the listener's exception.
const char* const k_disturbance = "the listener's own";

std::string thrownBy(DomParser& parser, Dom& dom, const std::string& text) {
    try {
        parser.parse(dom, text);
        return "";
    } catch (const ParseException& error) {
        return firstLine(error.message());
    } catch (const Disturbance&) {
        return k_disturbance;
    }
}

std::string expectedFromDocument(const Plan& plan, const Expectation& expected) {
    if (expected.m_thrownAtOnce || (expected.fails() && plan.m_deed == Plan::stopAndThrow)) {
        return k_disturbance;
    }
    return plan.m_deed == Plan::stopAndAccept ? "" : expected.m_error;
}

/// Every place in a tree that only a parser has made.
void checkWhole(Element& root) {
    std::vector<Element*> open{&root};
    while (!open.empty()) {
        Element& element = *open.back();
        open.pop_back();
        size_t place = 0;
        const auto visit = [&](Element* child, const std::string& key) {
            check(child->parent() == &element, "parent");
            check(child->key() == key || child->key().empty(), "key");
            open.push_back(child);
        };
        if (element.type() == etArray) {
            for (Element* const item : element.getArrayValue()) {
                visit(item, "[" + std::to_string(place++) + "]");
            }
        } else if (element.type() == etObject) {
            for (const auto& [key, member] : element.getObjectValue()) {
                visit(member, key);
            }
        }
    }
}

void checkDocument(const Input& input, const Plan& plan) {
    const Expectation expected(Reference({input.m_text}, true), plan);
    const std::string text(input.m_text);
    DisturbedParser parser(plan);
    {
        Dom dom;
        checkSame(thrownBy(parser, dom, text), expectedFromDocument(plan, expected),
                  "what is thrown");
        Model model;
        const size_t built = expected.m_disturbed ? plan.m_event - 1 : expected.m_events;
        Node* const root = ModelBuilder(model).build(input.m_text, built);
        check((dom.root() != nullptr) == (root != nullptr), "a root if an event built one");
        if (root) {
            checkSameTree(*dom.root(), *root);
        }
    }
    // The first document is gone. The parser goes on where it was.
    Dom second;
    thrownBy(parser, second, text);
    check(!second.root() || !expected.fails() || expected.m_thrownAtOnce,
          "nothing is read after an error");
    if (second.root()) {
        checkWhole(*second.root());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Input input(data, size);
    const Plan plan(input);
    checkPieces(input, plan);
    checkStream(input, plan);
    checkDocument(input, plan);
    return 0;
}
