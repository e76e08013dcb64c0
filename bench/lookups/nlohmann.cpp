// nlohmann/json: a member is found in a balanced tree. No call both answers quietly when a path is
// missing and gives the value when it is not: hits take `at`, misses `contains`.

#include <nlohmann/json.hpp>

#include "lookups/Lookup.h"

namespace {

using nlohmann::json;

class NlohmannLookup : public Lookup {
public:
    std::optional<std::string> pathText(const Segments& segments) const override {
        return pointerText(segments);
    }

    void prepare(const std::string& document) override { m_document = json::parse(document); }

    std::optional<std::string> find(const std::string& path) const override {
        if (!contains(path)) {
            return std::nullopt;
        }
        return at(path)->get<std::string>();
    }

    void time(benchmark::State& state, const std::string& path, bool exists) const override {
        if (exists) {
            timeEach(state, [&] { return at(path); });
        } else {
            timeEach(state, [&] { return contains(path); });
        }
    }

private:
    bool contains(const std::string& path) const {
        return m_document.contains(json::json_pointer(path));
    }
    const json* at(const std::string& path) const {
        return &m_document.at(json::json_pointer(path));
    }

    json m_document;
};

const KnownLibrary k_nlohmann({"nlohmann", []() -> std::unique_ptr<Lookup> {
                                   return std::make_unique<NlohmannLookup>();
                               }});

}  // namespace
