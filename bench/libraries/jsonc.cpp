// json-c: a member is found in a hash table. What it writes stays in a buffer of its own tree,
// which the next text of the same tree takes.

#include <json-c/json_object.h>
#include <json-c/json_pointer.h>
#include <json-c/json_tokener.h>
#include <json-c/linkhash.h>

#include <memory>

#include "libraries/adapter.h"

namespace {

struct Release {
    void operator()(json_object* object) const { json_object_put(object); }
    void operator()(json_tokener* tokener) const { json_tokener_free(tokener); }
};

void addTotals(json_object* value, Totals& totals) {
    ++totals.elements;
    switch (json_object_get_type(value)) {
        case json_type_string:
            totals.textBytes += static_cast<std::size_t>(json_object_get_string_len(value));
            break;
        case json_type_object:
            for (lh_entry* entry = json_object_get_object(value)->head; entry;
                 entry = entry->next) {
                addTotals(static_cast<json_object*>(lh_entry_v(entry)), totals);
            }
            break;
        case json_type_array:
            for (std::size_t i = 0; i < json_object_array_length(value); ++i) {
                addTotals(json_object_array_get_idx(value, i), totals);
            }
            break;
        default:
            break;
    }
}

json_object* smallRecord(std::size_t number) {
    json_object* const values = json_object_new_array();
    for (int i = 0; i < 10; ++i) {
        json_object_array_add(values, json_object_new_int(i));
    }
    json_object* const record = json_object_new_object();
    json_object_object_add(record, "id", json_object_new_uint64(number));
    json_object_object_add(record, "name", json_object_new_string("a small record"));
    json_object_object_add(record, "active", json_object_new_boolean(1));
    json_object_object_add(record, "ratio", json_object_new_double(0.5));
    json_object_object_add(record, "parent", nullptr);
    json_object_object_add(record, "kind", json_object_new_string("r"));
    json_object_object_add(record, "count", json_object_new_int(-7));
    json_object_object_add(record, "time", json_object_new_int64(1700000000000));
    json_object_object_add(record, "note", json_object_new_string(""));
    json_object_object_add(record, "values", values);
    return record;
}

struct JsonC {
    static constexpr const char* k_name = "json-c";
    using Document = std::unique_ptr<json_object, Release>;
    using PathText = std::string;

    static void read(Document& document, const std::string& text) {
        const std::unique_ptr<json_tokener, Release> tokener(json_tokener_new());
        document.reset(
            json_tokener_parse_ex(tokener.get(), text.data(), static_cast<int>(text.size())));
        require(document != nullptr,
                json_tokener_error_desc(json_tokener_get_error(tokener.get())));
    }

    static std::size_t write(const Document& document) {
        return length(document, JSON_C_TO_STRING_PRETTY);
    }

    static std::size_t writeCompact(const Document& document) {
        return length(document, JSON_C_TO_STRING_PLAIN);
    }

    static void copy(const Document& from, Document& to) {
        json_object* copied = nullptr;
        require(json_object_deep_copy(from.get(), &copied, nullptr) == 0, "not copied");
        to.reset(copied);
    }

    static bool equal(const Document& left, const Document& right) {
        return json_object_equal(left.get(), right.get()) != 0;
    }

    static Totals totals(const Document& document) {
        Totals totals;
        addTotals(document.get(), totals);
        return totals;
    }

    static long long sumIntegers(const Document& document) {
        long long sum = 0;
        for (std::size_t i = 0; i < json_object_array_length(document.get()); ++i) {
            sum ^= json_object_get_int64(json_object_array_get_idx(document.get(), i));
        }
        return sum;
    }

    static double sumDoubles(const Document& document) {
        double sum = 0;
        for (std::size_t i = 0; i < json_object_array_length(document.get()); ++i) {
            sum += json_object_get_double(json_object_array_get_idx(document.get(), i));
        }
        return sum;
    }

    static std::optional<std::string> pathText(const Segments& segments) {
        return pointerText(segments);
    }

    /// The place that holds the value, for null values are null pointers.
    static std::optional<json_object*> find(const Document& document, const std::string& path) {
        json_object* found = nullptr;
        return json_pointer_get(document.get(), path.c_str(), &found) == 0
                   ? std::optional<json_object*>(found)
                   : std::nullopt;
    }

    static Found found(json_object* value) {
        switch (json_object_get_type(value)) {
            case json_type_null:
                return {Kind::null, ""};
            case json_type_boolean:
                return {Kind::boolean, ""};
            case json_type_string:
                return {Kind::string, json_object_get_string(value)};
            case json_type_object:
                return {Kind::object, ""};
            case json_type_array:
                return {Kind::array, ""};
            default:
                return {Kind::number, ""};
        }
    }

    static json_object* findMember(const Document& document, const std::string& key) {
        json_object* found = nullptr;
        json_object_object_get_ex(document.get(), key.c_str(), &found);
        return found;
    }

    static void append(Document& document, std::size_t count) {
        document.reset(json_object_new_array());
        for (std::size_t i = 0; i < count; ++i) {
            json_object_array_add(document.get(), json_object_new_uint64(i));
        }
    }

    static void buildSmall(Document& document, std::size_t count) {
        document.reset(json_object_new_array());
        for (std::size_t i = 0; i < count; ++i) {
            json_object_array_add(document.get(), smallRecord(i));
        }
    }

    static void replaceMember(Document& document, const std::string& key, int number) {
        json_object_object_add(document.get(), key.c_str(), json_object_new_int(number));
    }

    static void replaceItem(Document& document, std::size_t index, int number) {
        json_object_array_put_idx(document.get(), index, json_object_new_int(number));
    }

    static void removeMember(Document& document, const std::string& key) {
        json_object_object_del(document.get(), key.c_str());
    }

private:
    static std::size_t length(const Document& document, int layout) {
        std::size_t result = 0;
        json_object_to_json_string_length(document.get(), layout, &result);
        return result;
    }
};

const KnownLibrary k_jsonC(libraryOf<JsonC>());

}  // namespace
