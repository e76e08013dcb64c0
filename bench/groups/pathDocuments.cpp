#include "groups/pathDocuments.h"

#include <utility>

namespace {

constexpr std::size_t k_depth = 8;
constexpr std::size_t k_items = 10;

enum class Keys { plain, escaped, indexed };

struct Shape {
    Keys kind;
    std::size_t members;
};

/// Differs for each number below 100; what is not stored in any document has one from 100 to 109.
std::string keyOf(Keys kind, std::size_t number) {
    static constexpr const char* k_subjects[] = {"db",    "user",   "order", "total",
                                                 "batch", "retry",  "cache", "queue",
                                                 "group", "region", "draft"};
    static constexpr const char* k_properties[] = {"id",   "name", "count", "time",  "state",
                                                   "size", "kind", "code",  "limit", "owner"};
    const std::string subject = k_subjects[number / 10];
    const std::string property = k_properties[number % 10];
    return kind == Keys::escaped ? subject + '.' + property + "/s" : subject + '_' + property;
}

bool isArray(const Shape& shape, std::size_t level) {
    return shape.kind == Keys::indexed && level % 2 == 0;
}

std::size_t sizeAt(const Shape& shape, std::size_t level) {
    return isArray(shape, level) ? k_items : shape.members;
}

/// The segment that leads to the child at `place` of the container on the path at `level`.
Segment segmentAt(const Shape& shape, std::size_t level, std::size_t place) {
    if (isArray(shape, level)) {
        return place;
    }
    // A step without a common divisor with 100 scatters the keys, and differently at each level.
    return keyOf(shape.kind, (level * 29 + place * 37) % 100);
}

Segment missingAt(const Shape& shape, std::size_t level) {
    if (isArray(shape, level)) {
        return k_items;
    }
    return keyOf(shape.kind, 100 + level);
}

std::size_t innerPlace(const Shape& shape, std::size_t level) {
    return sizeAt(shape, level) / 2;
}

std::size_t valuePlace(const Shape& shape, std::size_t level) {
    return innerPlace(shape, level) - 1;
}

std::string valueAt(std::size_t level) {
    return "the value at level " + std::to_string(level);
}

std::string fillerText(std::size_t place) {
    switch (place % 4) {
        case 0:
            return std::to_string(1700000000 + place);
        case 1:
            return "\"text " + std::to_string(place) + '"';
        case 2:
            return "0." + std::to_string(125 + place);
        default:
            return "true";
    }
}

/// The container at `level`, which has `inner` in its middle, and the value for paths that end here
/// before it.
std::string containerText(const Shape& shape, std::size_t level, const std::string& inner) {
    std::string text;
    for (std::size_t place = 0; place < sizeAt(shape, level); ++place) {
        text += place == 0 ? "" : ",";
        const Segment segment = segmentAt(shape, level, place);
        if (const auto* const key = std::get_if<std::string>(&segment)) {
            text += '"' + *key + "\":";
        }
        if (place == innerPlace(shape, level)) {
            text += inner;
        } else if (place == valuePlace(shape, level)) {
            text += '"' + valueAt(level) + '"';
        } else {
            text += fillerText(place);
        }
    }
    return isArray(shape, level) ? '[' + text + ']' : '{' + text + '}';
}

void addCases(std::vector<PathCase>& cases, const Shape& shape, std::size_t length) {
    const std::size_t last = length - 1;
    Segments segments;
    for (std::size_t level = 0; level < last; ++level) {
        segments.push_back(segmentAt(shape, level, innerPlace(shape, level)));
    }
    segments.push_back(segmentAt(shape, last, valuePlace(shape, last)));

    const std::string suffix = ':' + std::to_string(length);
    cases.push_back({"hit" + suffix, {{segments, Found{Kind::string, valueAt(last)}}}});

    Segments withoutLast = segments;
    withoutLast.back() = missingAt(shape, last);
    cases.push_back({"last_missing" + suffix, {{withoutLast, std::nullopt}}});

    if (length > 1) {
        Segments withoutFirst = segments;
        withoutFirst.front() = missingAt(shape, 0);
        cases.push_back({"first_missing" + suffix, {{withoutFirst, std::nullopt}}});
    }
}

std::string documentText(const Shape& shape) {
    std::string text = "null";
    for (std::size_t level = k_depth; level-- > 0;) {
        text = containerText(shape, level, text);
    }
    return text;
}

PathDocument document(const std::string& kindName, const Shape& shape) {
    std::vector<PathCase> cases;
    for (const std::size_t length : {std::size_t{1}, std::size_t{4}, k_depth}) {
        addCases(cases, shape, length);
    }
    const std::string name = "paths:" + kindName + ':' + std::to_string(shape.members);
    return {Subject(name, [shape] { return documentText(shape); }), std::move(cases)};
}

}  // namespace

std::list<PathDocument> pathDocuments() {
    std::list<PathDocument> documents;
    for (const std::size_t members : {std::size_t{8}, std::size_t{100}}) {
        documents.push_back(document("plain", {Keys::plain, members}));
        documents.push_back(document("escaped", {Keys::escaped, members}));
        documents.push_back(document("indexed", {Keys::indexed, members}));
    }
    return documents;
}
