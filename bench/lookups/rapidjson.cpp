// RapidJSON: the members of an object are searched one by one.

#include <rapidjson/document.h>
#include <rapidjson/pointer.h>

#include <stdexcept>

#include "lookups/Lookup.h"

namespace {

class RapidJsonLookup : public Lookup {
public:
    std::optional<std::string> pathText(const Segments& segments) const override {
        return pointerText(segments);
    }

    void prepare(const std::string& document) override {
        if (m_document.Parse(document.data(), document.size()).HasParseError()) {
            throw std::runtime_error("RapidJSON refuses the document");
        }
    }

    std::optional<std::string> find(const std::string& path) const override {
        const rapidjson::Value* const found = lookUp(path);
        if (!found) {
            return std::nullopt;
        }
        return std::string(found->GetString(), found->GetStringLength());
    }

    void time(benchmark::State& state, const std::string& path, bool) const override {
        timeEach(state, [&] { return lookUp(path); });
    }

private:
    const rapidjson::Value* lookUp(const std::string& path) const {
        return rapidjson::Pointer(path.data(), path.size()).Get(m_document);
    }

    rapidjson::Document m_document;
};

const KnownLibrary k_rapidJson({"rapidjson", []() -> std::unique_ptr<Lookup> {
                                    return std::make_unique<RapidJsonLookup>();
                                }});

}  // namespace
