// json-c: a member is found in a hash table.

#include <json-c/json_object.h>
#include <json-c/json_pointer.h>
#include <json-c/json_tokener.h>

#include <stdexcept>

#include "lookups/Lookup.h"

namespace {

struct Release {
    void operator()(json_object* object) const { json_object_put(object); }
};

class JsonCLookup : public Lookup {
public:
    std::optional<std::string> pathText(const Segments& segments) const override {
        return pointerText(segments);
    }

    void prepare(const std::string& document) override {
        m_document.reset(json_tokener_parse(document.c_str()));
        if (!m_document) {
            throw std::runtime_error("json-c refuses the document");
        }
    }

    std::optional<std::string> find(const std::string& path) const override {
        json_object* const found = lookUp(path.c_str());
        if (!found) {
            return std::nullopt;
        }
        return json_object_get_string(found);
    }

    void time(benchmark::State& state, const std::string& path, bool) const override {
        timeEach(state, [this, text = path.c_str()] { return lookUp(text); });
    }

private:
    json_object* lookUp(const char* path) const {
        json_object* found = nullptr;
        return json_pointer_get(m_document.get(), path, &found) == 0 ? found : nullptr;
    }

    std::unique_ptr<json_object, Release> m_document;
};

const KnownLibrary k_jsonC({"jsonc", []() -> std::unique_ptr<Lookup> {
                                return std::make_unique<JsonCLookup>();
                            }});

}  // namespace
