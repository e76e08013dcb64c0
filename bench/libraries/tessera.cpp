#include <zo/Tessera.h>

#include <sstream>
#include <utility>

#include "libraries/adapter.h"

using namespace zo::Tessera;

namespace {

void addTotals(const Element& element, Totals& totals) {
    ++totals.elements;
    switch (element.type()) {
        case etString:
            totals.textBytes += element.getStringValue().value().size();
            break;
        case etObject:
            for (const auto& [key, member] : element.getObjectValue()) {
                addTotals(*member, totals);
            }
            break;
        case etArray:
            for (const Element* const item : element.getArrayValue()) {
                addTotals(*item, totals);
            }
            break;
        default:
            break;
    }
}

std::unique_ptr<Object> smallRecord(std::size_t number) {
    auto values = std::make_unique<Array>();
    for (int i = 0; i < 10; ++i) {
        values->push_back(value(i).release());
    }
    auto record = std::make_unique<Object>();
    record->insert("id", value(number).release());
    record->insert("name", value("a small record").release());
    record->insert("active", value(true).release());
    record->insert("ratio", value(0.5).release());
    record->insert("parent", value().release());
    record->insert("kind", value("r").release());
    record->insert("count", value(-7).release());
    record->insert("time", value(1700000000000).release());
    record->insert("note", value("").release());
    record->insert("values", values.release());
    return record;
}

/// Its stream operators, as an application uses them.
struct Tessera {
    static constexpr const char* k_name = "tessera";
    using Document = Dom;
    using Input = std::istringstream;
    using PathText = Path;

    static void read(Dom& document, std::istringstream& in) {
        in >> document;
        require(document.root() != nullptr, "not read");
    }

    static std::ostringstream write(const Dom& document) {
        std::ostringstream out;
        out << document;
        return out;
    }

    static std::string writeCompact(const Dom& document) {
        WriteOptions options;
        options.compact = true;
        return writeDocument(document, options);
    }

    static std::ostringstream roundTrip(std::istringstream& in) {
        Dom document;
        in >> document;
        return write(document);
    }

    static void copy(const Dom& from, Dom& to) { to = from; }

    static bool equal(const Dom& left, const Dom& right) { return left == right; }

    static Totals totals(const Dom& document) {
        Totals totals;
        addTotals(*document.root(), totals);
        return totals;
    }

    static long long sumIntegers(const Dom& document) {
        long long sum = 0;
        for (const Element* const item : document.root()->getArrayValue()) {
            sum ^= item->as<long long>();
        }
        return sum;
    }

    static double sumDoubles(const Dom& document) {
        double sum = 0;
        for (const Element* const item : document.root()->getArrayValue()) {
            sum += item->as<double>();
        }
        return sum;
    }

    static std::optional<Path> pathText(const Segments& segments) {
        std::string text;
        PathGenerator generator(text);
        for (const Segment& segment : segments) {
            if (const auto* const index = std::get_if<std::size_t>(&segment)) {
                generator.genListItem(*index);
            } else {
                generator.genObjectProperty(std::get<std::string>(segment));
            }
        }
        return Path(text);
    }

    static const Element* find(const Dom& document, const Path& path) {
        return Path::tryGetElement(path, *document.root());
    }

    static Found found(const Element& element) { return foundIn(element); }

    static const Element* findMember(const Dom& document, const std::string& key) {
        return document.root()->getObjectValue().tryAt(key);
    }

    static void append(Dom& document, std::size_t count) {
        auto items = std::make_unique<Array>();
        for (std::size_t i = 0; i < count; ++i) {
            items->push_back(value(i).release());
        }
        document.setRoot(std::move(items));
    }

    static void buildSmall(Dom& document, std::size_t count) {
        auto records = std::make_unique<Array>();
        for (std::size_t i = 0; i < count; ++i) {
            records->push_back(smallRecord(i).release());
        }
        document.setRoot(std::move(records));
    }

    static void replaceMember(Dom& document, const std::string& key, int number) {
        document.root()->getObjectValue().replace(key, value(number));
    }

    static void replaceItem(Dom& document, std::size_t index, int number) {
        document.root()->getArrayValue().replace(index, value(number));
    }

    static void removeMember(Dom& document, const std::string& key) {
        document.root()->getObjectValue().erase(key);
    }
};

/// Beside it the functions for whole documents.
struct TesseraWhole {
    using Document = Dom;

    static void read(Dom& document, const std::string& text) { document = readDocument(text); }

    static std::string writeCompact(const Dom& document) { return Tessera::writeCompact(document); }
};

/// Numbers as the older conversions give them, which derive and keep a binary form.
long long sumDerivedIntegers(const Dom& document) {
    long long sum = 0;
    for (const Element* const item : document.root()->getArrayValue()) {
        sum ^= static_cast<long long>(*item);
    }
    return sum;
}

double sumDerivedDoubles(const Dom& document) {
    double sum = 0;
    for (const Element* const item : document.root()->getArrayValue()) {
        sum += static_cast<double>(*item);
    }
    return sum;
}

Rows tesseraRows(const Subject& subject) {
    Rows rows = documentRows<Tessera>(subject);
    const auto add = [&](const char* what, void (*run)(benchmark::State&, const Subject&)) {
        rows.push_back({subject.name() + '/' + what + '/' + Tessera::k_name,
                        benchmark::kMillisecond,
                        [run, &subject](benchmark::State& state) { run(state, subject); }});
    };
    add("read_whole", readRow<TesseraWhole>);
    add("round_trip_whole", roundTripRow<TesseraWhole>);
    addNumberRows<Tessera>(rows, subject, NumberKind::derivedIntegers, "integers", "_derived",
                           sumDerivedIntegers);
    addNumberRows<Tessera>(rows, subject, NumberKind::derivedDoubles, "doubles", "_derived",
                           sumDerivedDoubles);
    return rows;
}

Library tessera() {
    Library library = libraryOf<Tessera>();
    library.documentRows = tesseraRows;
    return library;
}

const KnownLibrary k_tessera(tessera());

}  // namespace
