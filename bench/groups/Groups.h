#ifndef ZO_TESSERA_BENCH_GROUPS_GROUPS_H
#define ZO_TESSERA_BENCH_GROUPS_GROUPS_H

#include <cstddef>
#include <list>
#include <string>
#include <vector>

#include "Subject.h"
#include "groups/pathDocuments.h"

/// An object of `count` members, for which most keys have 7 to 10 bytes.
struct MembersDocument {
    explicit MembersDocument(std::size_t count);

    Subject subject;                       // "members:4" and so on
    std::vector<std::string> keys;         // of all members, or of 1000, in a scattered order
    std::vector<std::string> missingKeys;  // as many
};

/// An array of small objects of six elements each.
struct ScaleDocument {
    explicit ScaleDocument(std::size_t count);

    Subject subject;       // "scale:1000" and so on
    std::size_t elements;  // about as many as the name says
};

/// What the rows that do not belong to a document work on.
struct Groups {
    /// `large` adds what has 10,000,000 elements, for which a run takes a few gigabytes.
    explicit Groups(bool large);

    /// Whether the library has rows of that document. Without `large` others than this library and
    /// the floor under it stop before a million elements, which would take half of a whole run.
    bool isFor(const ScaleDocument& scale, const std::string& library) const;

    std::list<PathDocument> paths = pathDocuments();
    std::list<MembersDocument> members;
    std::vector<std::size_t> sizes;  // of arrays that are appended to
    std::list<ScaleDocument> scales;

private:
    bool m_large;
};

/// An array of so many numbers.
std::string numbersText(std::size_t count);

/// How many elements each object of the row "build/small" has: itself, nine members of all kinds
/// but an object, and an array of ten numbers.
constexpr std::size_t k_smallRecordElements = 21;

#endif
