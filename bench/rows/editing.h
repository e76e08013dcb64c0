#ifndef ZO_TESSERA_BENCH_ROWS_EDITING_H
#define ZO_TESSERA_BENCH_ROWS_EDITING_H

// The rows of building and changing trees, and of finding members by their keys.

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Measured.h"
#include "groups/Groups.h"
#include "rows/Row.h"
#include "rows/lookups.h"
#include "rows/operations.h"

template <class Library>
void findMembersRow(benchmark::State& state, const Subject& subject,
                    const std::vector<std::string>& keys, bool areThere) {
    const auto& document = loaded<Library>(subject);
    for (const std::string& key : keys) {
        require((Library::findMember(document, key) != nullptr) == areThere,
                "wrong answer: " + key);
    }
    measureWhole(state, [&] {
        for (const std::string& key : keys) {
            benchmark::DoNotOptimize(Library::findMember(document, key));
        }
    });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(keys.size()));
}

/// Makes a document of `count` parts by `build`, each of which has `elements` elements.
template <class Library, class Build>
void buildRow(benchmark::State& state, std::size_t count, std::size_t elements,
              const Build& build) {
    measureParts(state, [&] {
        std::optional<typename Library::Document> document;
        {
            const Measured measured(state);
            build(document.emplace(), count);
        }
        require(Library::totals(*document).elements == 1 + count * elements, "not all was built");
    });
    countEach(state, count);
}

template <class Library>
void appendRow(benchmark::State& state, std::size_t count) {
    buildRow<Library>(state, count, 1, Library::append);
}

/// The value of every member of one document, and of every item of another.
template <class Library>
void replaceRow(benchmark::State& state, std::size_t count) {
    const MembersDocument members(count);
    const std::string items = numbersText(count);
    measureParts(state, [&] {
        typename Library::Document object;
        typename Library::Document array;
        load<Library>(object, members.subject.text());
        load<Library>(array, items);
        const Measured measured(state);
        for (const std::string& key : members.keys) {
            Library::replaceMember(object, key, 7);
        }
        for (std::size_t i = 0; i < count; ++i) {
            Library::replaceItem(array, i, 7);
        }
    });
    countEach(state, 2 * count);
}

template <class Library>
void removeRow(benchmark::State& state, std::size_t count) {
    const MembersDocument members(count);
    measureParts(state, [&] {
        typename Library::Document object;
        load<Library>(object, members.subject.text());
        {
            const Measured measured(state);
            for (std::size_t i = 0; i < count; i += 2) {
                Library::removeMember(object, members.keys[i]);
            }
        }
        require(Library::totals(object).elements == 1 + count - count / 2, "not all was removed");
    });
    countEach(state, count / 2);
}

template <class Library>
void addMemberRows(Rows& rows, const MembersDocument& members) {
    const auto add = [&](const char* what, const std::vector<std::string>& keys, bool areThere) {
        rows.push_back({members.subject.name() + '/' + what + '/' + Library::k_name,
                        benchmark::kMicrosecond,
                        [&members, &keys, areThere](benchmark::State& state) {
                            findMembersRow<Library>(state, members.subject, keys, areThere);
                        }});
    };
    add("find", members.keys, true);
    add("missing", members.missingKeys, false);
}

template <class Library>
void addEditingRows(Rows& rows, const Groups& groups) {
    const auto add = [&](const std::string& name, auto row) {
        rows.push_back({name + '/' + Library::k_name, benchmark::kMicrosecond, row});
    };
    constexpr std::size_t count = 1000;
    add("build/small", [](benchmark::State& state) {
        buildRow<Library>(state, count, k_smallRecordElements, Library::buildSmall);
    });
    for (const std::size_t size : groups.sizes) {
        add("append:" + std::to_string(size) + "/numbers",
            [size](benchmark::State& state) { appendRow<Library>(state, size); });
    }
    add("replace/1000", [](benchmark::State& state) { replaceRow<Library>(state, count); });
    add("remove/1000", [](benchmark::State& state) { removeRow<Library>(state, count); });
}

#endif
