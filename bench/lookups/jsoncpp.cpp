// JsonCpp: a path of its own syntax, `.a.b[3]`, without escapes; a member is found in a balanced
// tree. A missing path gives one shared null value.

#include <json/json.h>

#include <stdexcept>

#include "lookups/Lookup.h"

namespace {

class JsonCppLookup : public Lookup {
public:
    std::optional<std::string> pathText(const Segments& segments) const override {
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

    void prepare(const std::string& document) override {
        const std::unique_ptr<Json::CharReader> reader(Json::CharReaderBuilder().newCharReader());
        std::string error;
        if (!reader->parse(document.data(), document.data() + document.size(), &m_document,
                           &error)) {
            throw std::runtime_error("JsonCpp refuses the document: " + error);
        }
    }

    std::optional<std::string> find(const std::string& path) const override {
        const Json::Value* const found = lookUp(path);
        if (found == &Json::Value::nullSingleton()) {
            return std::nullopt;
        }
        return found->asString();
    }

    void time(benchmark::State& state, const std::string& path, bool) const override {
        timeEach(state, [&] { return lookUp(path); });
    }

private:
    const Json::Value* lookUp(const std::string& path) const {
        return &Json::Path(path).resolve(m_document);
    }

    Json::Value m_document;
};

const KnownLibrary k_jsonCpp({"jsoncpp", []() -> std::unique_ptr<Lookup> {
                                  return std::make_unique<JsonCppLookup>();
                              }});

}  // namespace
