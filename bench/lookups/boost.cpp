// Boost.JSON: the members of a small object are searched one by one, those of others found in a
// hash table. Compiled into this source, as Boost offers it.

#include <boost/json/src.hpp>

#include "lookups/Lookup.h"

namespace {

class BoostLookup : public Lookup {
public:
    std::optional<std::string> pathText(const Segments& segments) const override {
        return pointerText(segments);
    }

    void prepare(const std::string& document) override {
        m_document = boost::json::parse(document);
    }

    std::optional<std::string> find(const std::string& path) const override {
        const boost::json::value* const found = lookUp(path);
        if (!found) {
            return std::nullopt;
        }
        return std::string(found->as_string().data(), found->as_string().size());
    }

    void time(benchmark::State& state, const std::string& path, bool) const override {
        timeEach(state, [&] { return lookUp(path); });
    }

private:
    const boost::json::value* lookUp(const std::string& path) const {
        boost::json::error_code error;
        return m_document.find_pointer(path, error);
    }

    boost::json::value m_document;
};

const KnownLibrary k_boost({"boost", []() -> std::unique_ptr<Lookup> {
                                return std::make_unique<BoostLookup>();
                            }});

}  // namespace
