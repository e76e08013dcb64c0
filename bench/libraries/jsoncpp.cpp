// JsonCpp: a path of its own syntax, `.a.b[3]`, without escapes; a member is found in a balanced
// tree, as an item is. A missing path gives one shared null value.

#include <json/json.h>

#include <memory>

#include "libraries/adapter.h"

namespace {

void addTotals(const Json::Value& value, Totals& totals) {
    ++totals.elements;
    if (value.isString()) {
        const char* begin = nullptr;
        const char* end = nullptr;
        value.getString(&begin, &end);
        totals.textBytes += static_cast<std::size_t>(end - begin);
    }
    for (const Json::Value& child : value) {
        addTotals(child, totals);
    }
}

Json::Value smallRecord(std::size_t number) {
    Json::Value values(Json::arrayValue);
    for (int i = 0; i < 10; ++i) {
        values.append(i);
    }
    Json::Value record(Json::objectValue);
    record["id"] = Json::UInt64{number};
    record["name"] = "a small record";
    record["active"] = true;
    record["ratio"] = 0.5;
    record["parent"] = Json::nullValue;
    record["kind"] = "r";
    record["count"] = -7;
    record["time"] = Json::Int64{1700000000000};
    record["note"] = "";
    record["values"] = std::move(values);
    return record;
}

struct JsonCpp {
    static constexpr const char* k_name = "jsoncpp";
    using Document = Json::Value;
    using PathText = std::string;

    static void read(Json::Value& document, const std::string& text) {
        const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
        std::string error;
        require(reader->parse(text.data(), text.data() + text.size(), &document, &error), error);
    }

    static std::string write(const Json::Value& document) {
        return Json::writeString(Json::StreamWriterBuilder(), document);
    }

    static std::string writeCompact(const Json::Value& document) {
        Json::StreamWriterBuilder builder;
        builder["indentation"] = "";
        return Json::writeString(builder, document);
    }

    static void copy(const Json::Value& from, Json::Value& to) { to = from; }
    static bool equal(const Json::Value& left, const Json::Value& right) { return left == right; }

    static Totals totals(const Json::Value& document) {
        Totals totals;
        addTotals(document, totals);
        return totals;
    }

    static long long sumIntegers(const Json::Value& document) {
        long long sum = 0;
        for (const Json::Value& item : document) {
            sum ^= item.asInt64();
        }
        return sum;
    }

    static double sumDoubles(const Json::Value& document) {
        double sum = 0;
        for (const Json::Value& item : document) {
            sum += item.asDouble();
        }
        return sum;
    }

    static std::optional<std::string> pathText(const Segments& segments) {
        std::string text;
        for (const Segment& segment : segments) {
            if (const auto* const index = std::get_if<std::size_t>(&segment)) {
                text += '[' + std::to_string(*index) + ']';
                continue;
            }
            const auto& key = std::get<std::string>(segment);
            if (key.find_first_of(".[%") != std::string::npos) {
                return std::nullopt;
            }
            text += '.' + key;
        }
        return text;
    }

    static const Json::Value* find(const Json::Value& document, const std::string& path) {
        const Json::Value* const found = &Json::Path(path).resolve(document);
        return found == &Json::Value::nullSingleton() ? nullptr : found;
    }

    static Found found(const Json::Value& value) {
        switch (value.type()) {
            case Json::nullValue:
                return {Kind::null, ""};
            case Json::booleanValue:
                return {Kind::boolean, ""};
            case Json::stringValue:
                return {Kind::string, value.asString()};
            case Json::objectValue:
                return {Kind::object, ""};
            case Json::arrayValue:
                return {Kind::array, ""};
            default:
                return {Kind::number, ""};
        }
    }

    static const Json::Value* findMember(const Json::Value& document, const std::string& key) {
        return document.find(key.data(), key.data() + key.size());
    }

    static void append(Json::Value& document, std::size_t count) {
        document = Json::Value(Json::arrayValue);
        for (std::size_t i = 0; i < count; ++i) {
            document.append(Json::UInt64{i});
        }
    }

    static void buildSmall(Json::Value& document, std::size_t count) {
        document = Json::Value(Json::arrayValue);
        for (std::size_t i = 0; i < count; ++i) {
            document.append(smallRecord(i));
        }
    }

    static void replaceMember(Json::Value& document, const std::string& key, int number) {
        document[key] = number;
    }

    static void replaceItem(Json::Value& document, std::size_t index, int number) {
        document[static_cast<Json::ArrayIndex>(index)] = number;
    }

    static void removeMember(Json::Value& document, const std::string& key) {
        document.removeMember(key);
    }
};

const KnownLibrary k_jsonCpp(libraryOf<JsonCpp>());

}  // namespace
