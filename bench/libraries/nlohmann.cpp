// nlohmann/json: a member of `json` is found in a balanced tree, one of `ordered_json` by looking
// at them one by one. No call both answers quietly when a path is missing and gives the value when
// it is not: hits take `at`, misses `contains`.

#include <nlohmann/json.hpp>

#include "libraries/adapter.h"

namespace {

template <class Json>
void addTotals(const Json& value, Totals& totals) {
    ++totals.elements;
    if (value.is_string()) {
        totals.textBytes += value.template get_ref<const std::string&>().size();
    } else if (value.is_structured()) {
        for (const Json& child : value) {
            addTotals(child, totals);
        }
    }
}

template <class Json>
Json smallRecord(std::size_t number) {
    Json values = Json::array();
    for (int i = 0; i < 10; ++i) {
        values.push_back(i);
    }
    Json record;
    record["id"] = number;
    record["name"] = "a small record";
    record["active"] = true;
    record["ratio"] = 0.5;
    record["parent"] = nullptr;
    record["kind"] = "r";
    record["count"] = -7;
    record["time"] = 1700000000000;
    record["note"] = "";
    record["values"] = std::move(values);
    return record;
}

template <class Json>
struct Nlohmann {
    using Document = Json;
    using PathText = std::string;
    using Pointer = typename Json::json_pointer;

    static void read(Json& document, const std::string& text) { document = Json::parse(text); }
    static std::string write(const Json& document) { return document.dump(4); }
    static std::string writeCompact(const Json& document) { return document.dump(); }
    static void copy(const Json& from, Json& to) { to = from; }
    static bool equal(const Json& left, const Json& right) { return left == right; }

    static Totals totals(const Json& document) {
        Totals totals;
        addTotals(document, totals);
        return totals;
    }

    static long long sumIntegers(const Json& document) {
        long long sum = 0;
        for (const Json& item : document) {
            sum ^= item.template get<long long>();
        }
        return sum;
    }

    static double sumDoubles(const Json& document) {
        double sum = 0;
        for (const Json& item : document) {
            sum += item.template get<double>();
        }
        return sum;
    }

    static std::optional<std::string> pathText(const Segments& segments) {
        return pointerText(segments);
    }

    static const Json* find(const Json& document, const std::string& path) {
        return &document.at(Pointer(path));
    }

    static bool exists(const Json& document, const std::string& path) {
        return document.contains(Pointer(path));
    }

    static Found found(const Json& value) {
        switch (value.type()) {
            case Json::value_t::null:
                return {Kind::null, ""};
            case Json::value_t::boolean:
                return {Kind::boolean, ""};
            case Json::value_t::string:
                return {Kind::string, value.template get<std::string>()};
            case Json::value_t::object:
                return {Kind::object, ""};
            case Json::value_t::array:
                return {Kind::array, ""};
            default:
                return {Kind::number, ""};
        }
    }

    static const Json* findMember(const Json& document, const std::string& key) {
        const auto found = document.find(key);
        return found == document.end() ? nullptr : &*found;
    }

    static void append(Json& document, std::size_t count) {
        document = Json::array();
        for (std::size_t i = 0; i < count; ++i) {
            document.push_back(i);
        }
    }

    static void buildSmall(Json& document, std::size_t count) {
        document = Json::array();
        for (std::size_t i = 0; i < count; ++i) {
            document.push_back(smallRecord<Json>(i));
        }
    }

    static void replaceMember(Json& document, const std::string& key, int number) {
        document[key] = number;
    }

    static void replaceItem(Json& document, std::size_t index, int number) {
        document[index] = number;
    }

    static void removeMember(Json& document, const std::string& key) { document.erase(key); }
};

struct Sorted : Nlohmann<nlohmann::json> {
    static constexpr const char* k_name = "nlohmann";
};

struct Ordered : Nlohmann<nlohmann::ordered_json> {
    static constexpr const char* k_name = "nlohmann_ordered";
};

const KnownLibrary k_sorted(libraryOf<Sorted>());
const KnownLibrary k_ordered(libraryOf<Ordered>());

}  // namespace
