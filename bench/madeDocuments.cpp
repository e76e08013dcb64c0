#include "madeDocuments.h"

#include <random>

namespace {

// The standard fixes this engine's numbers, unlike the distributions'.
using Random = std::mt19937;

unsigned below(Random& random, unsigned limit) {
    return static_cast<unsigned>(random() % limit);
}

template <size_t Count>
const char* anyOf(Random& random, const char* const (&choices)[Count]) {
    return choices[below(random, Count)];
}

std::string text(Random& random, unsigned words) {
    static constexpr const char* k_words[] = {
        "lorem",           "ipsum",     "Straße", "日本語", "caf\\u00e9", "\\ud83d\\ude00",
        "says \\\"hi\\\"", "a\\/b\\\\", "один",   "two\\n", "x",          "naïve",
        "interoperability"};
    std::string result;
    for (unsigned i = 0; i < words; ++i) {
        result += (i == 0 ? "" : " ");
        result += anyOf(random, k_words);
    }
    return result;
}

std::string texts(Random& random) {
    std::string out = "{\"messages\": [\n";
    for (unsigned i = 0; i < 5000; ++i) {
        out += (i == 0 ? "" : ",\n");
        out += "  {\"id\": " + std::to_string(500000000000000000 + random());
        out += ", \"text\": \"" + text(random, 12) + "\"";
        out += ", \"author\": {\"name\": \"" + text(random, 2) + "\", \"verified\": false";
        out += ", \"url\": null, \"followers\": " + std::to_string(below(random, 100000)) + "}";
        out += ", \"tags\": [\"" + text(random, 1) + "\", \"" + text(random, 1) + "\"]}";
    }
    return out + "\n]}\n";
}

std::string objects(Random& random) {
    std::string out = "{\n  \"areas\": {\n";
    for (unsigned i = 0; i < 300; ++i) {
        out += "    \"" + std::to_string(205700000 + i) + "\": \"" + text(random, 2) + "\",\n";
    }
    out += "    \"last\": \"\"\n  },\n  \"performances\": [\n";
    for (unsigned i = 0; i < 8000; ++i) {
        out += (i == 0 ? "" : ",\n");
        out += "    {\n      \"id\": " + std::to_string(339000000 + i) + ",\n";
        out += "      \"logo\": null,\n      \"prices\": [\n        {\n";
        out += "          \"amount\": " + std::to_string(below(random, 200) * 500) + ",\n";
        out += "          \"category\": " + std::to_string(338937235 + below(random, 9)) + "\n";
        out += "        }\n      ],\n      \"open\": true\n    }";
    }
    return out + "\n  ]\n}\n";
}

std::string decimals(Random& random) {
    std::string out = "{\"type\": \"outlines\", \"rings\": [";
    for (unsigned ring = 0; ring < 400; ++ring) {
        out += ring == 0 ? "[" : ",[";
        for (unsigned i = 0; i < 130; ++i) {
            out += (i == 0 ? "[-" : ",[-") + std::to_string(50 + below(random, 90)) + ".";
            out += std::to_string(100000000000000 + random()) + "," +
                   std::to_string(42 + below(random, 40));
            out += "." + std::to_string(100000000000000 + random()) + "]";
        }
        out += "]";
    }
    return out + "]}\n";
}

}  // namespace

std::vector<MadeDocument> madeDocuments() {
    Random random;
    std::vector<MadeDocument> documents;
    documents.push_back({"texts", texts(random)});
    documents.push_back({"objects", objects(random)});
    documents.push_back({"decimals", decimals(random)});
    return documents;
}
