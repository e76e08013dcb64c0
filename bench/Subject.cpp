#include "Subject.h"

#include <malloc.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <sstream>
#include <utility>

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

constexpr std::size_t k_lengths[] = {1, 4, 8};
constexpr std::size_t k_deepest = 8;
constexpr std::size_t k_samples = 64;

using Elements = std::vector<const Element*>;

Segments segmentsTo(const Element& element) {
    Segments segments;
    for (const Element* at = &element; at->parent(); at = at->parent()) {
        if (at->parent()->type() == etArray) {
            segments.emplace_back(at->index());
        } else {
            segments.emplace_back(at->key());
        }
    }
    std::reverse(segments.begin(), segments.end());
    return segments;
}

bool hasEmptyKey(const Segments& segments) {
    return std::find(segments.begin(), segments.end(), Segment(std::string())) != segments.end();
}

std::vector<LookupPath> sampleOf(const Elements& elements) {
    std::vector<LookupPath> sample;
    const std::size_t count = std::min(k_samples, elements.size());
    for (std::size_t i = 0; i < count; ++i) {
        // From the middle of each of `count` equal parts.
        const Element& element = *elements[(2 * i + 1) * elements.size() / (2 * count)];
        Segments segments = segmentsTo(element);
        if (!hasEmptyKey(segments)) {
            sample.push_back({std::move(segments), foundIn(element)});
        }
    }
    return sample;
}

void addNumber(std::map<NumberKind, std::string>& texts, const BasicNumber& number) {
    const std::string& text = number.toString();
    const auto add = [&](NumberKind kind) {
        std::string& list = texts[kind];
        list += (list.empty() ? '[' : ',');
        list += text;
    };
    if (text.find_first_of(".eE") != std::string::npos) {
        if (const auto value = number.tryAs<double>()) {
            add(NumberKind::doubles);
            if (*value >= DBL_MIN) {
                add(NumberKind::derivedDoubles);
            }
        }
    } else if (text != "-0" && number.tryAs<long long>()) {  // some read "-0" as a double
        add(NumberKind::integers);
        if (text.size() < 19) {
            add(NumberKind::derivedIntegers);
        }
    }
}

Facts factsOf(const std::string& text) {
    std::istringstream in(text);
    Dom document;
    in >> document;
    Facts facts;
    std::array<Elements, k_deepest + 1> levels;
    std::size_t depth = 0;
    visit(
        std::as_const(*document.root()),
        [&](const Element& element, const Path&) {
            ++facts.elements;
            if (depth < levels.size()) {
                levels[depth].push_back(&element);
            }
            if (element.type() == etNumber) {
                addNumber(facts.numbers, element.getNumberValue().value());
            }
            ++depth;
            return evGoOn;
        },
        [&](const Element&, const Path&) {
            --depth;
            return evGoOn;
        });
    for (const std::size_t length : k_lengths) {
        std::size_t level = length;
        while (level > 1 && levels[level].empty()) {
            --level;
        }
        facts.paths[length] = sampleOf(levels[level]);
    }
    for (auto& [kind, list] : facts.numbers) {
        list += ']';
    }
    return facts;
}

}  // namespace

Found foundIn(const Element& element) {
    static constexpr Kind k_kinds[] = {Kind::null,   Kind::boolean, Kind::number,
                                       Kind::string, Kind::object,  Kind::array};
    const Kind kind = k_kinds[element.type()];
    return {kind, kind == Kind::string ? element.getStringValue().value() : std::string()};
}

Subject::Subject(std::string name, std::function<std::string()> makeText)
    : m_name(std::move(name)), m_makeText(std::move(makeText)) {}

const std::string& Subject::name() const {
    return m_name;
}

const std::string& Subject::text() const {
    if (!m_text) {
        m_text = m_makeText();
    }
    return *m_text;
}

std::size_t Subject::elements() const {
    return facts().elements;
}

const std::vector<LookupPath>& Subject::paths(std::size_t length) const {
    return facts().paths.at(length);
}

const std::string& Subject::numbers(NumberKind kind) const {
    static const std::string k_none = "[]";
    const auto list = facts().numbers.find(kind);
    return list == facts().numbers.end() ? k_none : list->second;
}

const Facts& Subject::facts() const {
    if (!m_facts) {
        m_facts = factsOf(text());
        // What this tree leaves behind in the heap is not to slow down a library that comes next.
        malloc_trim(0);
    }
    return *m_facts;
}
