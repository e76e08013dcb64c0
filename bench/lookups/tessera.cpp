// Tessera: a member is found in a balanced tree.

#include <zo/Tessera.h>

#include <sstream>
#include <utility>

#include "lookups/Lookup.h"

namespace {

using namespace zo::Tessera;

class TesseraLookup : public Lookup {
public:
    std::optional<std::string> pathText(const Segments& segments) const override {
        std::string text;
        PathGenerator generator(text);
        for (const Segment& segment : segments) {
            if (const auto* const index = std::get_if<std::size_t>(&segment)) {
                generator.genListItem(*index);
            } else {
                generator.genObjectProperty(std::get<std::string>(segment));
            }
        }
        return text;
    }

    void prepare(const std::string& document) override {
        std::istringstream in(document);
        Dom read;
        in >> read;
        m_root = read.takeRoot();
    }

    std::optional<std::string> find(const std::string& path) const override {
        const Element* const found = lookUp(path);
        if (!found) {
            return std::nullopt;
        }
        return found->getStringValue().value();
    }

    void time(benchmark::State& state, const std::string& path, bool) const override {
        const Path kept = path;
        timeEach(state, [&] { return lookUp(kept); });
    }

private:
    const Element* lookUp(const Path& path) const {
        return Path::tryGetElement(path, std::as_const(*m_root));
    }

    std::unique_ptr<Element> m_root;
};

const KnownLibrary k_tessera({"tessera", []() -> std::unique_ptr<Lookup> {
                                  return std::make_unique<TesseraLookup>();
                              }});

}  // namespace
