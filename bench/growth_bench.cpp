// Whether the cost of what strangers send grows with its size and no faster.
//
//     growth_bench [--benchmark_filter=deep] [--benchmark_...]
//
// Each row runs at two sizes. `each` is the time for one byte, level, digit, member, item or
// segment: it stays about the same from the smaller size to the larger, which is ten times that.
// All times are the processor's, so that a busy machine does not disturb them. `each` may double
// where the larger one leaves the processor's caches; ten times as much would show a cost that
// grows with the square. Where a tree is searched, `each` grows with the logarithm, and for an
// exponent the whole time stays the same. The largest rows take about 2 GB.

#include <benchmark/benchmark.h>

#include <memory>
#include <sstream>
#include <string>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>

#include "growth.h"

using namespace zo::Tessera;

namespace {

// ---- long tokens, read from a stream

/// Reads `before`, as many of `c` as the row says, and `behind`.
void readRun(State& state, const std::string& before, char c, const std::string& behind) {
    struct Reading {
        std::istringstream in;
        Dom document;
    };
    const std::string text = before + std::string(sizeOf(state), c) + behind;
    measure(
        state,
        [&] {
            return std::make_unique<Reading>(Reading{std::istringstream(text), Dom()});
        },
        [](std::unique_ptr<Reading>& reading) {
            reading->in >> reading->document;
            require(reading->document.root()->size() == 1, "not everything was read");
        });
}

void readString(State& state) {
    readRun(state, "[\"", 'x', "\"]");
}
void readComment(State& state) {
    readRun(state, "[/*", 'x', "*/1]");
}
void readBlanks(State& state) {
    readRun(state, "[", ' ', "1]");
}
void readKey(State& state) {
    readRun(state, "{\"", 'k', "\":1}");
}
void readNumber(State& state) {
    readRun(state, "[", '7', "]");
}

// ---- deep documents

/// Arrays and objects in turn.
std::string deepText(size_t depth) {
    return repeated(depth / 2, "[{\"k\":") + "true" + repeated(depth / 2, "}]");
}

Element& deepestOf(Element& root) {
    Element* deepest = &root;
    while (deepest->type() != etBoolean) {
        deepest = deepest->type() == etArray ? &deepest->at(0UL) : &deepest->at("k");
    }
    return *deepest;
}

void deepRead(State& state) {
    const std::string text = deepText(sizeOf(state));
    measure(
        state, [] { return std::make_unique<Dom>(); },
        [&](std::unique_ptr<Dom>& document) { DomParser().parse(*document, text); });
}

void deepWrite(State& state) {
    const Owner root = read(deepText(sizeOf(state)));
    measure(
        state, [] { return std::string(); },
        [&](std::string& text) { text = Generator(nullptr).encode(*root); });
}

void deepEvents(State& state) {
    measure(
        state, [] { return std::make_unique<std::ostringstream>(); },
        [&](std::unique_ptr<std::ostringstream>& out) {
            Generator generator(out.get());
            for (size_t i = 0; i < sizeOf(state); ++i) {
                generator.gen_array_open();
            }
            for (size_t i = 0; i < sizeOf(state); ++i) {
                generator.gen_array_close();
            }
        });
}

void deepCopy(State& state) {
    const Owner root = read(deepText(sizeOf(state)));
    measure(
        state, [] { return Owner(); }, [&](Owner& copy) { copy.reset(root->clone()); });
}

void deepCompare(State& state) {
    const Owner root = read(deepText(sizeOf(state)));
    const Owner copy(root->clone());
    measure(
        state, [] { return 0; },
        [&](int) { require(root->compare(*copy) == 0, "a copy differs"); });
}

void deepDestroy(State& state) {
    const std::string text = deepText(sizeOf(state));
    measure(
        state, [&] { return read(text); }, [](Owner& root) { root.reset(); });
}

void deepPath(State& state) {
    const Owner root = read(deepText(sizeOf(state)));
    const Element& deepest = deepestOf(*root);
    measure(
        state, [] { return std::string(); },
        [&](std::string& path) { path = deepest.path(nullptr); });
}

void deepLookUp(State& state) {
    const Owner root = read(deepText(sizeOf(state)));
    const Element& deepest = deepestOf(*root);
    const Path path = deepest.path(nullptr);
    measure(
        state, [] { return 0; },
        [&](int) { require(&root->get(path) == &deepest, "another element was found"); });
}

void deepCreate(State& state) {
    const Path path = repeated(sizeOf(state), ".k");
    const Owner bottom = value(true);
    measure(
        state, [] { return object(); },
        [&](Owner& root) { Path::tryCreateElement(*root, path, *bottom); });
}

// ---- numbers

void decimalDigits(State& state) {
    const std::string text = "0." + std::string(sizeOf(state), '7');
    measure(
        state, [] { return 0; },
        [&](int) {
            const zo::DecNumber number(text);
            require(number.compare(zo::DecNumber(text + "1")) < 0, "not in order");
            require(static_cast<double>(number) > 0.7, "another value");
            require(static_cast<int>(number) == 0, "another value");
        });
}

void numberDigits(State& state) {
    const std::string text = "0." + std::string(sizeOf(state), '7');
    measure(
        state, [] { return BasicNumber(); },
        [&](BasicNumber& number) {
            number.set(text);
            require(number.toDouble() > 0.7, "another value");
        });
}

void decimalExponent(State& state) {
    const std::string exponent = std::to_string(state.range(0));
    measure(
        state, [] { return 0; },
        [&](int) {
            const zo::DecNumber large("1e" + exponent);
            const zo::DecNumber small("1e-" + exponent);
            require(large.compare(small) > 0, "not in order");
            require(static_cast<double>(small) == 0, "another value");
            require(static_cast<long>(small) == 0, "another value");
            benchmark::DoNotOptimize(static_cast<double>(large));
        });
    state.counters.clear();
}

// ---- many members and items

std::string key(size_t i) {
    return "key" + std::to_string(i);
}

void insertMembers(State& state) {
    measure(state, object, [&](Owner& root) {
        for (size_t i = 0; i < sizeOf(state); ++i) {
            Element::createNull(root.get(), key(i));
        }
    });
}

void findMembers(State& state) {
    const Owner root = object();
    for (size_t i = 0; i < sizeOf(state); ++i) {
        Element::createNull(root.get(), key(i));
    }
    measure(
        state, [] { return 0; },
        [&](int) {
            for (size_t i = 0; i < sizeOf(state); ++i) {
                benchmark::DoNotOptimize(root->at(key(i)));
            }
        });
}

void clearMembers(State& state) {
    const auto filled = [&] {
        Owner root = object();
        for (size_t i = 0; i < sizeOf(state); ++i) {
            Element::createNull(root.get(), key(i));
        }
        return root;
    };
    measure(state, filled, [](Owner& root) { root->getObjectValue().clear(); });
}

void replaceMember(State& state) {
    measure(state, object, [&](Owner& root) {
        for (size_t i = 0; i < sizeOf(state); ++i) {
            Element::createNull(root.get(), "key");
        }
    });
}

// ---- long paths

void longKey(State& state) {
    const std::string name(sizeOf(state), 'k');
    const Owner root = object();
    const Element* const member = Element::createNull(root.get(), name);
    measure(
        state, [] { return Path(); },
        [&](Path& path) {
            path = member->path(nullptr);
            require(&root->get(path) == member, "another element was found");
        });
}

void escapedKey(State& state) {
    const std::string name(sizeOf(state), '.');
    const Owner root = object();
    const Element* const member = Element::createNull(root.get(), name);
    measure(
        state, [] { return Path(); },
        [&](Path& path) {
            path = member->path(nullptr);
            require(&root->get(path) == member, "another element was found");
        });
}

void schemaPath(State& state) {
    const Path data = repeated(sizeOf(state) / 2, "[0]k");
    measure(
        state, [] { return Path(); },
        [&](Path& path) { path = Path::fromSchemaPath(Path::toSchemaPath(data)); });
}

void unreadableIndex(State& state) {
    const Path path = "[" + std::string(sizeOf(state), '7') + "]";
    const Owner root = array();
    measure(
        state, [] { return std::string(); },
        [&](std::string& text) {
            try {
                root->get(path);
            } catch (const ParseException& exception) {
                text = exception.what();
            }
            require(text.size() > path.size(), "no error");
        });
}

void updateOnePath(State& state) {
    const Path path = "a.b.c";
    const Owner number = value(7);
    measure(state, object, [&](Owner& root) {
        for (size_t i = 0; i < sizeOf(state); ++i) {
            root->tryUpdate(path, *number);
        }
    });
}

void registerRows() {
    registerRow("readString", readString, 10'000'000, 100'000'000);
    registerRow("readComment", readComment, 1'000'000, 10'000'000);
    registerRow("readBlanks", readBlanks, 1'000'000, 10'000'000);
    registerRow("readKey", readKey, 1'000'000, 10'000'000);
    registerRow("readNumber", readNumber, 1'000'000, 10'000'000);
    registerRow("deepRead", deepRead, 200'000, 2'000'000);
    registerRow("deepWrite", deepWrite, 200'000, 2'000'000);
    registerRow("deepEvents", deepEvents, 200'000, 2'000'000);
    registerRow("deepCopy", deepCopy, 200'000, 2'000'000);
    registerRow("deepCompare", deepCompare, 200'000, 2'000'000);
    registerRow("deepDestroy", deepDestroy, 200'000, 2'000'000);
    registerRow("deepPath", deepPath, 200'000, 2'000'000);
    registerRow("deepLookUp", deepLookUp, 200'000, 2'000'000);
    registerRow("deepCreate", deepCreate, 200'000, 2'000'000);
    registerRow("decimalDigits", decimalDigits, 1'000'000, 10'000'000);
    registerRow("numberDigits", numberDigits, 1'000'000, 10'000'000);
    registerRow("decimalExponent", decimalExponent, 999'999'999, 99'999'999'999'999'999);
    registerRow("insertMembers", insertMembers, 200'000, 2'000'000);
    registerRow("findMembers", findMembers, 200'000, 2'000'000);
    registerRow("clearMembers", clearMembers, 200'000, 2'000'000);
    registerRow("replaceMember", replaceMember, 1'000'000, 10'000'000);
    registerSearchRows();
    registerRow("longKey", longKey, 1'000'000, 10'000'000);
    registerRow("escapedKey", escapedKey, 1'000'000, 10'000'000);
    registerRow("schemaPath", schemaPath, 1'000'000, 10'000'000);
    registerRow("unreadableIndex", unreadableIndex, 1'000'000, 10'000'000);
    registerRow("updateOnePath", updateOnePath, 1'000'000, 10'000'000);
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    registerRows();
    benchmark::RunSpecifiedBenchmarks();
}
