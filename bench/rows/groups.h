#ifndef ZO_TESSERA_BENCH_ROWS_GROUPS_H
#define ZO_TESSERA_BENCH_ROWS_GROUPS_H

// The rows that belong to no document that is read for its own sake: see peers_bench.cpp.

#include <benchmark/benchmark.h>

#include <string>

#include "groups/Groups.h"
#include "rows/Row.h"
#include "rows/documents.h"
#include "rows/editing.h"
#include "rows/lookups.h"
#include "rows/operations.h"

template <class Library>
void addPathRows(Rows& rows, const PathDocument& document) {
    for (const PathCase& row : document.cases) {
        rows.push_back({document.subject.name() + '/' + row.row + '/' + Library::k_name,
                        benchmark::kNanosecond,
                        [&document, &row](benchmark::State& state) {
                            lookupRow<Library>(state, document.subject, row.paths);
                        },
                        [&row] { return canNameOneOf<Library>(row.paths); }});
    }
}

/// The cost of one element as documents grow.
template <class Library>
void addScaleRows(Rows& rows, const ScaleDocument& scale) {
    const auto add = [&](const char* what, void (*run)(benchmark::State&, const Subject&)) {
        rows.push_back({scale.subject.name() + '/' + what + '/' + Library::k_name,
                        benchmark::kMillisecond, [run, &scale](benchmark::State& state) {
                            run(state, scale.subject);
                            countEach(state, scale.elements);
                        }});
    };
    add("read_destroy", readDestroyRow<Library>);
    if constexpr (k_has<Copy, Library>) {
        add("copy", copyRow<Library>);
    }
    if constexpr (k_has<Iterate, Library> && !k_has<DestroysAtOnce, Library>) {
        add("destroy", destroyRow<Library>);
    }
    if constexpr (k_has<Append, Library>) {
        rows.push_back(
            {scale.subject.name() + "/append/" + Library::k_name, benchmark::kMillisecond,
             [&scale](benchmark::State& state) { appendRow<Library>(state, scale.elements); }});
    }
}

template <class Library>
Rows groupRows(const Groups& groups) {
    Rows rows;
    if constexpr (k_has<Find, Library>) {
        for (const PathDocument& document : groups.paths) {
            addPathRows<Library>(rows, document);
        }
    }
    if constexpr (k_has<FindMember, Library>) {
        for (const MembersDocument& members : groups.members) {
            addMemberRows<Library>(rows, members);
        }
    }
    if constexpr (k_has<Append, Library>) {
        addEditingRows<Library>(rows, groups);
    }
    for (const ScaleDocument& scale : groups.scales) {
        if (groups.isFor(scale, Library::k_name)) {
            addScaleRows<Library>(rows, scale);
        }
    }
    return rows;
}

#endif
