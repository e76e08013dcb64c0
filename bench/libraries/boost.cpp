// Boost.JSON: the members of a small object are searched one by one, those of others found in a
// hash table. It has no readable layout. Compiled into this source, as Boost offers it.

#include <boost/json/src.hpp>

#include "libraries/adapter.h"

namespace {

using boost::json::value;

void addTotals(const value& element, Totals& totals) {
    ++totals.elements;
    if (const auto* const text = element.if_string()) {
        totals.textBytes += text->size();
    } else if (const auto* const object = element.if_object()) {
        for (const auto& member : *object) {
            addTotals(member.value(), totals);
        }
    } else if (const auto* const array = element.if_array()) {
        for (const value& item : *array) {
            addTotals(item, totals);
        }
    }
}

boost::json::object smallRecord(std::size_t number) {
    boost::json::array values;
    for (int i = 0; i < 10; ++i) {
        values.push_back(i);
    }
    boost::json::object record;
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

struct Boost {
    static constexpr const char* k_name = "boost";
    using Document = value;
    using PathText = std::string;

    static void read(value& document, const std::string& text) {
        document = boost::json::parse(text);
    }

    static std::string writeCompact(const value& document) {
        return boost::json::serialize(document);
    }

    static void copy(const value& from, value& to) { to = from; }
    static bool equal(const value& left, const value& right) { return left == right; }

    static Totals totals(const value& document) {
        Totals totals;
        addTotals(document, totals);
        return totals;
    }

    static long long sumIntegers(const value& document) {
        long long sum = 0;
        for (const value& item : document.as_array()) {
            sum ^= item.as_int64();
        }
        return sum;
    }

    static double sumDoubles(const value& document) {
        double sum = 0;
        for (const value& item : document.as_array()) {
            sum += item.as_double();
        }
        return sum;
    }

    static std::optional<std::string> pathText(const Segments& segments) {
        return pointerText(segments);
    }

    static const value* find(const value& document, const std::string& path) {
        boost::json::error_code error;
        return document.find_pointer(path, error);
    }

    static Found found(const value& element) {
        switch (element.kind()) {
            case boost::json::kind::null:
                return {Kind::null, ""};
            case boost::json::kind::bool_:
                return {Kind::boolean, ""};
            case boost::json::kind::string:
                return {Kind::string, {element.get_string().data(), element.get_string().size()}};
            case boost::json::kind::object:
                return {Kind::object, ""};
            case boost::json::kind::array:
                return {Kind::array, ""};
            default:
                return {Kind::number, ""};
        }
    }

    static const value* findMember(const value& document, const std::string& key) {
        return document.as_object().if_contains(key);
    }

    static void append(value& document, std::size_t count) {
        auto& items = document.emplace_array();
        for (std::size_t i = 0; i < count; ++i) {
            items.push_back(i);
        }
    }

    static void buildSmall(value& document, std::size_t count) {
        auto& records = document.emplace_array();
        for (std::size_t i = 0; i < count; ++i) {
            records.push_back(smallRecord(i));
        }
    }

    static void replaceMember(value& document, const std::string& key, int number) {
        document.as_object()[key] = number;
    }

    static void replaceItem(value& document, std::size_t index, int number) {
        document.as_array()[index] = number;
    }

    static void removeMember(value& document, const std::string& key) {
        document.as_object().stable_erase(key);
    }
};

const KnownLibrary k_boost(libraryOf<Boost>());

}  // namespace
