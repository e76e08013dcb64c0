// RapidJSON: the members of an object are searched one by one. A document is a few large blocks.

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "libraries/adapter.h"

namespace {

using rapidjson::StringBuffer;
using rapidjson::Value;

void addTotals(const Value& value, Totals& totals) {
    ++totals.elements;
    if (value.IsString()) {
        totals.textBytes += value.GetStringLength();
    } else if (value.IsObject()) {
        for (const auto& member : value.GetObject()) {
            addTotals(member.value, totals);
        }
    } else if (value.IsArray()) {
        for (const Value& item : value.GetArray()) {
            addTotals(item, totals);
        }
    }
}

Value smallRecord(std::size_t number, rapidjson::Document::AllocatorType& memory) {
    Value values(rapidjson::kArrayType);
    for (int i = 0; i < 10; ++i) {
        values.PushBack(i, memory);
    }
    Value record(rapidjson::kObjectType);
    record.AddMember("id", Value(std::uint64_t{number}), memory);
    record.AddMember("name", Value("a small record", memory), memory);
    record.AddMember("active", true, memory);
    record.AddMember("ratio", 0.5, memory);
    record.AddMember("parent", Value(), memory);
    record.AddMember("kind", Value("r", memory), memory);
    record.AddMember("count", -7, memory);
    record.AddMember("time", std::int64_t{1700000000000}, memory);
    record.AddMember("note", Value("", memory), memory);
    record.AddMember("values", values, memory);
    return record;
}

template <unsigned Flags>
struct RapidJsonTree {
    using Document = rapidjson::Document;
    static constexpr bool k_destroysAtOnce = true;

    static void read(Document& document, const std::string& text) {
        document.Parse<Flags>(text.data(), text.size());
        require(!document.HasParseError(), "not read");
    }

    static StringBuffer write(const Document& document) {
        StringBuffer out;
        rapidjson::PrettyWriter<StringBuffer> writer(out);
        document.Accept(writer);
        return out;
    }

    static StringBuffer writeCompact(const Document& document) {
        StringBuffer out;
        rapidjson::Writer<StringBuffer> writer(out);
        document.Accept(writer);
        return out;
    }

    static void copy(const Document& from, Document& to) { to.CopyFrom(from, to.GetAllocator()); }
    static bool equal(const Document& left, const Document& right) { return left == right; }

    static Totals totals(const Document& document) {
        Totals totals;
        addTotals(document, totals);
        return totals;
    }
};

struct RapidJson : RapidJsonTree<rapidjson::kParseDefaultFlags> {
    static constexpr const char* k_name = "rapidjson";
    using PathText = std::string;

    static long long sumIntegers(const Document& document) {
        long long sum = 0;
        for (const Value& item : document.GetArray()) {
            sum ^= item.GetInt64();
        }
        return sum;
    }

    static double sumDoubles(const Document& document) {
        double sum = 0;
        for (const Value& item : document.GetArray()) {
            sum += item.GetDouble();
        }
        return sum;
    }

    static std::optional<std::string> pathText(const Segments& segments) {
        return pointerText(segments);
    }

    static const Value* find(const Document& document, const std::string& path) {
        return rapidjson::Pointer(path.data(), path.size()).Get(document);
    }

    static Found found(const Value& value) {
        switch (value.GetType()) {
            case rapidjson::kNullType:
                return {Kind::null, ""};
            case rapidjson::kFalseType:
            case rapidjson::kTrueType:
                return {Kind::boolean, ""};
            case rapidjson::kStringType:
                return {Kind::string, {value.GetString(), value.GetStringLength()}};
            case rapidjson::kObjectType:
                return {Kind::object, ""};
            case rapidjson::kArrayType:
                return {Kind::array, ""};
            default:
                return {Kind::number, ""};
        }
    }

    static const Value* findMember(const Document& document, const std::string& key) {
        const auto found = document.FindMember(name(key));
        return found == document.MemberEnd() ? nullptr : &found->value;
    }

    static void append(Document& document, std::size_t count) {
        document.SetArray();
        for (std::size_t i = 0; i < count; ++i) {
            document.PushBack(Value(std::uint64_t{i}), document.GetAllocator());
        }
    }

    static void buildSmall(Document& document, std::size_t count) {
        document.SetArray();
        for (std::size_t i = 0; i < count; ++i) {
            document.PushBack(smallRecord(i, document.GetAllocator()), document.GetAllocator());
        }
    }

    static void replaceMember(Document& document, const std::string& key, int number) {
        document.FindMember(name(key))->value = number;
    }

    static void replaceItem(Document& document, std::size_t index, int number) {
        document[static_cast<rapidjson::SizeType>(index)] = number;
    }

    static void removeMember(Document& document, const std::string& key) {
        document.EraseMember(document.FindMember(name(key)));
    }

private:
    static Value name(const std::string& key) {
        return Value(rapidjson::StringRef(key.data(), key.size()));
    }
};

/// Numbers are kept as strings, which nothing tells from others: they are written with quotes.
struct RapidJsonText : RapidJsonTree<rapidjson::kParseNumbersAsStringsFlag> {
    static constexpr const char* k_name = "rapidjson_text";
};

const KnownLibrary k_rapidJson(libraryOf<RapidJson>());
const KnownLibrary k_rapidJsonText(libraryOf<RapidJsonText>());

}  // namespace
