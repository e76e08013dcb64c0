// Any text as a path: both entrances of the parser against a second reader, and look-up, creation
// and conversion against models that walk over what that reader tells.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>

#include <zo/Tessera.h>

#include "PathReader.h"
#include "check.h"
#include "pathModel.h"

using namespace zo::Tessera;
using namespace pathModel;

namespace {

/// Writes down what the parser reports.
class Recorder : public PathParserListener {
public:
    explicit Recorder(Answers answers) : m_answers(answers) {}

    bool cbObjectProperty(const std::string& key) override {
        check(!key.empty(), "a key is never empty");
        return segment({Event::evKey, key});
    }
    bool cbArrayItem(unsigned long index) override { return segment({Event::evItem, "", index}); }
    void cbFinish() override { events.push_back({Event::evFinish}); }
    bool cbParseError(const std::string& message, const std::string& token,
                      unsigned long tokenStart, unsigned long position) override {
        const std::string place = " in path at \"" + token + "\" " + std::to_string(tokenStart) +
                                  "," + std::to_string(position) + " parser state es";
        check(message.find(place) != std::string::npos, "a message tells the token and the places");
        events.push_back({Event::evError, message, tokenStart, position});
        return m_answers.toErrors;
    }

    Events events;

private:
    bool segment(const Event& event) {
        events.push_back(event);
        return ++m_segments != m_answers.unwanted;
    }

    Answers m_answers;
    size_t m_segments = 0;
};

void checkEvents(const std::string& text, Answers answers) {
    const std::string expected = shown(readPath(text, answers));
    Recorder fromMemory(answers);
    PathParser(fromMemory).parse(text);
    checkSame(shown(fromMemory.events), expected, "events of a text in memory");
    Recorder fromStream(answers);
    std::istringstream in(text);
    check(&PathParser(fromStream).parse(in) == &in, "parsing returns the stream");
    checkSame(shown(fromStream.events), expected, "events of a stream");
    for (const Event& event : fromMemory.events) {
        // A backslash at the very end makes a character of its own, which an error may be behind.
        const size_t last = text.size() + (answers.toErrors ? 1 : 0);
        check(event.kind != Event::evError ||
                  (event.index <= event.position && event.position <= last),
              "an error has its place");
    }
}

std::unique_ptr<Element> makeTree() {
    static const char* const k_json =
        R"({"a": {"b": {"c": 1, "d": [10, 20, {"e": null}]}, "x.y": true, "[0]": "bracket",)"
        R"( "*": [[1, 2], {"**": "stars"}], "back\\slash": {"\\": 2}, "": {"": 3, "k": 4}},)"
        R"( "list": [0, [1, [2, [3]]], {"k": [{}]}, [], {}], "0": {"0": [0]}, "nul\u0000key": 5,)"
        R"( "a key of more than fifteen bytes": {"and one more of that kind": [false]},)"
        R"( "items": {"properties": {"items": 6}}, "default": [], "meta": {"schema": {)"
        R"(  "properties": {"a": {"properties": {"b": {"default": {"c": 7}}, "x.y": {}}},)"
        R"(   "list": {"items": {"items": {"default": [8]}, "properties": {"k": {"default": 9}}}},)"
        R"(   "new": {"default": "text"}}, "default": {}}}})";
    Dom dom;
    DomParser().parse(dom, k_json);
    Element& a = dom.root()->at("a");
    Element::createNumber(BasicNumber(), &a, "\xFF");
    Element::createArray(Element::createObject(&a, "y\xFFz"), "n");
    return dom.takeRoot();
}

template <class Action>
Outcome outcomeOf(const Action& action) {
    try {
        return action();
    } catch (const ParseException& e) {
        return thrown("ParseException " + std::to_string(e.line()) + "," +
                      std::to_string(e.column()) + "-" + std::to_string(e.endLine()) + "," +
                      std::to_string(e.endColumn()) + " " + e.message());
    } catch (const PathNotFound& e) {
        std::ostringstream address;
        address << " Current element: \"" << static_cast<const void*>(e.elementPath()) << "\"";
        std::string text;
        e.generateWhat(text);
        const std::string start = "Path \"" + e.path() + "\" not found! Key \"" + e.key() + "\".";
        checkSame(text, start + address.str(), "the text of PathNotFound");
        return thrown(start + " at \"" + *e.elementPath() + "\"");
    } catch (const Exception& e) {
        std::string text;
        e.generateWhat(text);
        return thrown(text + " at \"" + (e.elementPath() ? *e.elementPath() : "?") + "\"");
    }
}

void checkOutcome(const Outcome& actual, const Outcome& expected, const char* what) {
    checkSame(actual.thrown, expected.thrown, what);
    checkSame(actual.text, expected.text, what);
    check(actual.element == expected.element, what);
}

/// Where paths begin: at the root, and within the tree.
Element& startOf(Element& root, bool atRoot) {
    return atRoot ? root : root.at("a");
}

void checkSameTrees(const Element& left, const Element& right) {
    check(left.type() == right.type() && left.size() == right.size(), "trees have the same shape");
    check(left.index() == right.index(), "elements have the same index");
    checkSame(left.key(), right.key(), "keys");
    if (left.type() == etArray) {
        for (size_t i = 0; i < left.size(); ++i) {
            check(left.at(i).parent() == &left, "an item has its parent");
            checkSameTrees(left.at(i), right.at(i));
        }
    } else if (left.type() == etObject) {
        auto other = right.getObjectValue().begin();
        for (const auto& [key, member] : left.getObjectValue()) {
            check(member->parent() == &left && key == other->first, "a member has its place");
            checkSameTrees(*member, *other++->second);
        }
    } else {
        check(left.compare(right) == 0, "elements have the same value");
    }
}

/// A byte 0xFF in a key is written as it is, and ends the text when that is read.
bool readsBack(const std::string& path) {
    return path.find('\xFF') == std::string::npos;
}

bool isNotFound(const Outcome& outcome) {
    return outcome.thrown.rfind("Path ", 0) == 0;
}

bool hasStar(const std::string& path) {
    for (const Event& event : readPath(path)) {
        if (event.kind == Event::evItem && event.index == Path::k_noIndex) {
            return true;
        }
    }
    return false;
}

/// The one plain form of a path without errors, on request with "*" for every index.
std::string plainPath(const std::string& path, bool withStars) {
    std::string plain;
    for (Event event : readPath(path)) {
        if (withStars && event.kind == Event::evItem) {
            event.index = Path::k_noIndex;
        }
        if (isSegment(event)) {
            append(plain, event);
        }
    }
    return plain;
}

void checkFound(const Element& element, const std::string& path, const Element& start) {
    if (&element != &start) {
        const std::string plain = plainPath(path, false);
        checkSame(element.path(&start), plain, "path() from where the path begins");
        if (readsBack(plain)) {
            checkSame(element.schemaPath(&start), toSchema(plain).text, "schemaPath()");
            check(Path::tryGetElement(plain, start) == &element, "path() leads to the element");
        }
    }
    const std::string whole = element.path(nullptr);
    check(!readsBack(whole) || Path::tryGetElement(whole, start.root()) == &element,
          "path() leads to the element from the root");
}

void checkLookUp(const std::string& path, Element& start) {
    const Outcome expected = lookedUp(path, start);
    const Element& same = start;
    const auto get = [&](const auto& action, const char* what) {
        checkOutcome(outcomeOf([&] { return Outcome{&action()}; }), expected, what);
    };
    get(
        [&]() -> auto& { return Path::getElement(path, start); }, "getElement");
    get(
        [&]() -> auto& { return Path::getElement(path, same); }, "getElement of a constant tree");
    get(
        [&]() -> auto& { return start.get(path); }, "get");
    get(
        [&]() -> auto& { return same.get(path); }, "get of a constant tree");

    const Outcome tried = isNotFound(expected) ? Outcome{} : expected;
    const auto tryGet = [&](const auto& action, const Outcome& wanted, const char* what) {
        checkOutcome(outcomeOf([&] { return Outcome{action()}; }), wanted, what);
    };
    const auto where = [&](bool exists) { return exists ? tried.element : nullptr; };
    tryGet([&] { return Path::tryGetElement(path, start); }, tried, "tryGetElement");
    tryGet([&] { return Path::tryGetElement(path, same); }, tried, "tryGetElement, constant");
    tryGet([&] { return where(Path::pathExists(path, start)); }, tried, "pathExists");
    tryGet([&] { return where(start.pathExists(path)); }, tried, "pathExists of an element");
    if (!tried.thrown.empty()) {
        return;
    }
    for (const EType type : {etEmpty, etNull, etBoolean, etNumber, etString, etObject, etArray}) {
        Outcome typed = tried;
        if (typed.element && typed.element->type() != type) {
            typed.element = nullptr;
        }
        tryGet([&] { return Path::tryGetElement(path, start, type); }, typed, "typed");
        tryGet([&] { return Path::tryGetElement(path, same, type); }, typed, "typed, constant");
        tryGet([&] { return where(Path::pathExists(path, start, type)); }, typed, "typed exists");
        tryGet([&] { return where(start.pathExists(path, type)); }, typed, "typed exists, element");
    }
    if (tried.element) {
        checkFound(*tried.element, path, start);
    }
}

void checkCreation(const std::string& path, bool atRoot, bool throwing) {
    const std::unique_ptr<Element> tree = makeTree();
    const std::unique_ptr<Element> model = makeTree();
    Element& start = startOf(*tree, atRoot);
    const std::unique_ptr<Element> content = value("new");
    const auto create = [&] {
        return outcomeOf([&] {
            return Outcome{throwing ? &Path::createElement(start, path, *content)
                                    : Path::tryCreateElement(start, path, *content)};
        });
    };
    Outcome expected = created(path, startOf(*model, atRoot), *content);
    if (!throwing && isNotFound(expected)) {
        const std::string parent = start.path(nullptr);
        expected = thrown("Error creating element. Parent: \"" + parent + "\" path: \"" + path +
                          "\" at \"" + parent + "\"");
    }
    const Outcome actual = create();
    checkSame(actual.thrown, expected.thrown, "what creation throws");
    checkSameTrees(*tree, *model);
    if (!expected.element) {
        return;
    }
    const Element& element = *actual.element;
    checkSame(element.path(nullptr), expected.element->path(nullptr), "where it was created");
    if (hasStar(path)) {
        const Element& container = *element.parent();
        check(&container.at(container.size() - 1) == &element, "\"*\" appends");
        return;
    }
    checkFound(element, path, start);
    check(Path::tryGetElement(path, start) == &element, "the path finds what it created");
    check(create().element == &element, "what exists is not created again");
    checkSameTrees(*tree, *model);
}

void checkDefaults(const std::string& path, Element& start) {
    const bool joined = path.empty() || path.front() == '.' || path.front() == '[';
    Outcome expected = toSchema(start.path(nullptr) + (joined ? "" : ".") + path);
    if (expected.thrown.empty()) {
        expected = lookedUp(expected.text + ".default", start.root());
    }
    checkOutcome(outcomeOf([&] { return Outcome{&start.getDefault(path)}; }), expected,
                 "getDefault");
    if (expected.element) {
        const Outcome found = lookedUp(path, start);
        expected = isNotFound(found) ? expected : found;
    }
    checkOutcome(outcomeOf([&] { return Outcome{&start.getUsingDefault(path)}; }), expected,
                 "getUsingDefault");
}

void checkSchemaPaths(const std::string& path) {
    const Outcome schema = toSchema(path);
    checkOutcome(outcomeOf([&] {
                     return Outcome{nullptr, Path::toSchemaPath(path)};
                 }),
                 schema, "toSchemaPath");
    if (schema.thrown.empty() && readsBack(schema.text)) {
        const std::string plain = plainPath(path, true);
        checkSame(Path::fromSchemaPath(schema.text), plain, "to the schema and back");
        checkSame(Path::toSchemaPath(plain), schema.text, "to the schema once more");
    }
    const Outcome data = fromSchema(path);
    checkOutcome(outcomeOf([&] {
                     return Outcome{nullptr, Path::fromSchemaPath(path)};
                 }),
                 data, "fromSchemaPath");
    if (data.thrown.empty() && readsBack(data.text)) {
        checkSame(Path::fromSchemaPath(Path::toSchemaPath(data.text)), data.text,
                  "from the schema, there and back");
    }
}

void checkGenerated(const std::string& name) {
    const std::string half = name.substr(name.size() / 2);
    const Events segments = {{Event::evKey, name},
                             {Event::evItem, "", name.size()},
                             {Event::evKey, half},
                             {Event::evItem, "", Path::k_noIndex},
                             {Event::evFinish}};
    std::string fromText;
    std::ostringstream out;
    PathGenerator toText(fromText);
    PathGenerator toStream(out);
    for (PathGenerator* generator : {&toText, &toStream}) {
        generator->genObjectProperty(name);
        generator->genListItem(name.size());
        generator->genObjectProperty(zo::StringRef<char>(half));
        generator->genListItem(Path::k_noIndex);
    }
    checkSame(out.str(), fromText, "generators to a stream and to a text");
    if (!name.empty() && readsBack(name)) {
        Recorder recorder({});
        PathParser(recorder).parse(fromText);
        checkSame(shown(recorder.events), shown(segments), "a generated path reads back");
    }
    checkEvents(fromText, {});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string path(reinterpret_cast<const char*>(data), size);
    static const std::unique_ptr<Element> tree = makeTree();
    for (const bool toErrors : {false, true}) {
        checkEvents(path, {toErrors, 0});
        checkEvents(path, {toErrors, 1 + size % 5});
    }
    for (const bool atRoot : {true, false}) {
        checkLookUp(path, startOf(*tree, atRoot));
        checkDefaults(path, startOf(*tree, atRoot));
        checkCreation(path, atRoot, atRoot == (size % 2 == 0));
    }
    checkSchemaPaths(path);
    checkGenerated(path);
    return 0;
}
