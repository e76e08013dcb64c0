// Reads any bytes as a document through every entrance, and writes, copies and compares what was
// read.

#include <cstddef>
#include <memory>
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
constexpr int k_statusError = 2;

struct Reading {
    std::vector<std::string> m_events;
    std::string m_verdict;  // empty, or what the error is
};

template <class Feed>
Reading read(bool numbersAsText, const Feed& feed) {
    EventList listener(numbersAsText);
    CallbackParser parser(&listener);
    std::string verdict;
    try {
        feed(parser);
        check(listener.m_errors.empty(), "no error is told of unless one is thrown");
        check(parser.state() == k_statusOk, "status without an error");
    } catch (const Exception& error) {
        check(listener.m_errors.size() == 1, "an error is told of once");
        checkSame(error.what(), listener.m_errors.front(), "what is thrown is what was told of");
        check(parser.state() == k_statusError, "status after an error");
        verdict = firstLine(error.what());
    }
    return {std::move(listener.m_events), verdict};
}

void checkSameReading(const Reading& left, const Reading& right, const char* what) {
    checkSame(left.m_verdict, right.m_verdict, what);
    check(left.m_events.size() == right.m_events.size(), what);
    for (size_t i = 0; i < left.m_events.size(); ++i) {
        checkSame(left.m_events[i], right.m_events[i], what);
    }
}

Reading readWhole(bool numbersAsText, const std::string& text) {
    return read(numbersAsText, [&](CallbackParser& parser) {
        check(parser.parse(text) == 0, "the answer without an error");
    });
}

Reading readStream(bool numbersAsText, const std::string& text) {
    return read(numbersAsText, [&](CallbackParser& parser) {
        std::istringstream in(text);
        parser.parse(in);
    });
}

/// The text with a string, or else white space, of such a length that the parser puts several
/// pieces of a stream together.
std::string stretched(std::string text) {
    constexpr size_t length = 9000;
    const size_t quote = text.find('"');
    return quote == std::string::npos ? text.insert(0, length, ' ')
                                      : text.insert(quote + 1, length, 'x');
}

/// The verdict.
std::string checkEntrances(const Input& input, bool numbersAsText) {
    const std::string text(input.m_text);
    const Reading whole = readWhole(numbersAsText, text);
    const Reading inParts = read(numbersAsText, [&](CallbackParser& parser) {
        // Each piece stands where the former one was, so that no use of that goes unnoticed.
        std::string buffer;
        for (const std::string_view piece : inPieces(input, 0)) {
            buffer.assign(piece);
            check(parser.parse(buffer.data(), buffer.size()) == 0, "the answer without an error");
        }
    });
    checkSameReading(whole, inParts, "whole and in pieces");
    checkSameReading(whole, readStream(numbersAsText, text), "whole and from a stream");
    const std::string longer = stretched(text);
    checkSameReading(readWhole(numbersAsText, longer), readStream(numbersAsText, longer),
                     "a long token, whole and from a stream");
    return whole.m_verdict;
}

/// Fills `dom` and returns whether that raised nothing.
bool readInto(Dom& dom, const Input& input, const std::string& verdict) {
    try {
        DomParser().parse(dom, input.m_text.data(), input.m_text.size());
        check(verdict.empty(), "a document with an error is refused");
        return true;
    } catch (const ParseException& error) {
        checkSame(firstLine(error.message()), verdict, "a document's error is that of its text");
        return false;
    }
}

size_t countOutOfRange(const std::vector<Twin>& twins) {
    size_t count = 0;
    for (const Twin& twin : twins) {
        if (twin.m_node->m_kind == etNumber && twin.m_node->m_number.isOutOfRange()) {
            ++count;
        }
    }
    return count;
}

/// Each number out of range refuses one comparison, and then compares as 0.
void checkEqual(const Element& left, const Element& right, size_t refusals) {
    for (size_t i = 0; i < refusals; ++i) {
        bool refused = false;
        try {
            left.compare(right);
        } catch (const ValueOutOfRange<std::string, std::string>&) {
            refused = true;
        }
        check(refused, "a number out of range refuses to be compared");
    }
    check(left.compare(right) == 0, "equal trees");
}

std::string written(const Dom& dom, const char* indent) {
    Generator generator(nullptr);
    generator.setIndent(indent);
    return generator.encode(dom);
}

void checkRoundTrip(const Dom& dom, Model& model, const Node& root, const char* indent,
                    size_t refusals) {
    const std::string text = written(dom, indent);
    Dom again;
    // A number at the very end of a text is read only when something comes behind it.
    DomParser().parse(again, text + ' ');
    check(again.root() != nullptr, "what was written has a root");
    checkSameTree(*again.root(), model.attachedCopy(root));
    checkEqual(*dom.root(), *again.root(), refusals);
    checkSame(written(again, indent), text, "written again");
}

void checkWithoutMeta(Dom& dom, Model& model, const Node& root) {
    Node& rest = model.attachedCopy(root);
    const size_t meta = Model::placeOf(rest, dom.metaKey());
    if (meta < rest.m_keys.size()) {
        const auto offset = static_cast<std::ptrdiff_t>(meta);
        rest.m_keys.erase(rest.m_keys.begin() + offset);
        rest.m_children.erase(rest.m_children.begin() + offset);
    }
    dom.setIncludeMeta(false);
    Dom again;
    DomParser().parse(again, written(dom, "") + ' ');
    checkSameTree(*again.root(), rest);
    dom.setIncludeMeta(true);
}

/// After all numbers out of range of `dom` have refused once.
void checkCopies(Dom& dom, Model& model, const Node& root) {
    const std::unique_ptr<Element> clone(dom.root()->clone());
    checkSameTree(*clone, model.clone(root));
    check(clone->compare(*dom.root()) == 0, "a clone is equal");
    Dom copy(dom);
    checkSameTree(*copy.root(), model.clone(root));
    check(copy == dom, "a copied document is equal");
    copy.setRoot(nullptr);
    copy = dom;
    checkSameTree(*copy.root(), model.clone(root));
    check(copy == dom, "an assigned document is equal");
}

void checkDocument(const Input& input, const std::string& verdict) {
    Model model;
    Node* const root = ModelBuilder(model).build(input.m_text);
    Dom dom;
    const bool complete = readInto(dom, input, verdict);
    check((dom.root() != nullptr) == (root != nullptr), "a root if there was an event");
    if (!root) {
        return;
    }
    const size_t outOfRange = countOutOfRange(checkSameTree(*dom.root(), *root));
    if (complete) {
        checkRoundTrip(dom, model, *root, "", 2 * outOfRange);
        checkRoundTrip(dom, model, *root, "any", outOfRange);
        checkWithoutMeta(dom, model, *root);
        checkCopies(dom, model, *root);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Input input(data, size);
    checkEntrances(input, false);
    checkDocument(input, checkEntrances(input, true));
    return 0;
}
