#ifndef ZO_TESSERA_BENCH_SUBJECT_H
#define ZO_TESSERA_BENCH_SUBJECT_H

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "paths.h"

namespace zo::Tessera {
class Element;
}

/// Which numbers of a document. Integers have a text without ".", "e" or "E".
enum class NumberKind {
    integers,         // that a long long holds
    doubles,          // the others that a double holds
    derivedIntegers,  // of the integers those that BasicNumber::toLongLong takes
    derivedDoubles    // of the doubles those that BasicNumber::toDouble takes
};

/// What rows need to know about a document.
struct Facts {
    std::size_t elements = 0;
    std::map<std::size_t, std::vector<LookupPath>> paths;  // by the length asked for
    std::map<NumberKind, std::string> numbers;
};

/// An element of this library's tree, told as other libraries' values are.
Found foundIn(const zo::Tessera::Element& element);

/// A document that rows are made for. Its text and the facts are made when they are first needed,
/// as most processes run one row alone.
class Subject {
public:
    Subject(std::string name, std::function<std::string()> makeText);

    const std::string& name() const;
    const std::string& text() const;
    /// The number of elements in this library's tree.
    std::size_t elements() const;
    /// Up to 64 paths of `length` segments, which is 1, 4 or 8, or of as many as the deepest
    /// element's if that is less deep; the same at every run. No key on the way is empty, which no
    /// path text could name.
    const std::vector<LookupPath>& paths(std::size_t length) const;
    /// The document's numbers of that kind, in their order, as one array.
    const std::string& numbers(NumberKind kind) const;

private:
    const Facts& facts() const;

    std::string m_name;
    std::function<std::string()> m_makeText;
    mutable std::optional<std::string> m_text;
    mutable std::optional<Facts> m_facts;
};

#endif
