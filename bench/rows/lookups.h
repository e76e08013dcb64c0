#ifndef ZO_TESSERA_BENCH_ROWS_LOOKUPS_H
#define ZO_TESSERA_BENCH_ROWS_LOOKUPS_H

// The rows of looking up by a path's text, which is parsed each time, and kept as the type of
// string that the library takes.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Measured.h"
#include "Subject.h"
#include "paths.h"
#include "rows/Row.h"
#include "rows/operations.h"

/// The document that rows share which only read it.
template <class Library>
const typename Library::Document& loaded(const Subject& subject) {
    static std::optional<typename Library::Document> document;
    static const Subject* loadedSubject = nullptr;
    if (loadedSubject != &subject) {
        loadedSubject = nullptr;
        load<Library>(document.emplace(), subject.text());
        loadedSubject = &subject;
    }
    return *document;
}

template <class Library>
bool leadsNowhere(const typename Library::Document& document,
                  const typename Library::PathText& path) {
    if constexpr (k_has<Exists, Library>) {
        return !Library::exists(document, path);
    } else {
        return !Library::find(document, path);
    }
}

/// The paths as texts, without those that the library has no text for. Throws when one does not
/// lead to what it should.
template <class Library>
std::vector<typename Library::PathText> checkedTexts(const typename Library::Document& document,
                                                     const std::vector<LookupPath>& paths) {
    std::vector<typename Library::PathText> texts;
    for (const LookupPath& path : paths) {
        auto text = Library::pathText(path.segments);
        if (!text) {
            continue;
        }
        if (path.expected) {
            const auto found = Library::find(document, *text);
            require(found && Library::found(*found) == *path.expected,
                    pointerText(path.segments) + " leads to another element");
        } else {
            require(leadsNowhere<Library>(document, *text),
                    pointerText(path.segments) + " leads to an element");
        }
        texts.push_back(std::move(*text));
    }
    return texts;
}

/// Looks up all paths, which are there or not alike.
template <class Library>
void lookupRow(benchmark::State& state, const Subject& subject,
               const std::vector<LookupPath>& paths) {
    const auto& document = loaded<Library>(subject);
    const auto texts = checkedTexts<Library>(document, paths);
    if constexpr (k_has<Exists, Library>) {
        if (!paths.front().expected) {
            measureWhole(state, [&] {
                for (const auto& text : texts) {
                    benchmark::DoNotOptimize(Library::exists(document, text));
                }
            });
            state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
            return;
        }
    }
    measureWhole(state, [&] {
        for (const auto& text : texts) {
            benchmark::DoNotOptimize(Library::find(document, text));
        }
    });
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

/// Whether the library has a text for one of the paths.
template <class Library>
bool canNameOneOf(const std::vector<LookupPath>& paths) {
    for (const LookupPath& path : paths) {
        if (Library::pathText(path.segments)) {
            return true;
        }
    }
    return false;
}

template <class Library>
void addLookupRows(Rows& rows, const Subject& subject) {
    for (const std::size_t length : {1UL, 4UL, 8UL}) {
        rows.push_back(
            {subject.name() + "/lookup:" + std::to_string(length) + '/' + Library::k_name,
             benchmark::kMicrosecond,
             [&subject, length](benchmark::State& state) {
                 lookupRow<Library>(state, subject, subject.paths(length));
             },
             [&subject, length] { return canNameOneOf<Library>(subject.paths(length)); }});
    }
}

#endif
