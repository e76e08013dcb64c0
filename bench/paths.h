#ifndef ZO_TESSERA_BENCH_PATHS_H
#define ZO_TESSERA_BENCH_PATHS_H

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// The key of a member, or the place of an item.
using Segment = std::variant<std::string, std::size_t>;
using Segments = std::vector<Segment>;

enum class Kind { null, boolean, number, string, object, array };

/// What a look-up gives, as far as it is compared; the text is that of strings alone.
struct Found {
    Kind kind = Kind::null;
    std::string text;

    bool operator==(const Found& other) const { return kind == other.kind && text == other.text; }
};

struct LookupPath {
    Segments segments;
    std::optional<Found> expected;  // nothing where the path leads nowhere
};

/// The path as a JSON pointer, such as `/list/3/a~1b`.
std::string pointerText(const Segments& segments);

#endif
