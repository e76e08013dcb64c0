#ifndef ZO_TESSERA_BENCH_ROWS_OPERATIONS_H
#define ZO_TESSERA_BENCH_ROWS_OPERATIONS_H

// What an adapter of libraries/ may have. Rows are registered for the operations that are there.
//
//   k_name       the library's name in those of rows
//   Document     what holds a tree, and destroys it in the end
//   k_destroysAtOnce   if its end visits no element: too short to be measured
//   Input        what `read` takes, made from the text beforehand; the text itself if not given
//   read(Document&, Input&)
//   collect(Document&, text)   where `read` leaves nothing: what writing needs
//   write(const Document&)     in the library's usual readable layout
//   writeCompact(const Document&)
//   roundTrip(Input&)          where it is more than `read` and `writeCompact`
//   copy(const Document& from, Document& to)
//   equal(const Document&, const Document&)
//   totals(const Document&)    visits every element
//   sumIntegers(const Document&), sumDoubles(const Document&)   of an array of numbers
//   PathText, pathText(const Segments&)   what looking up takes; nothing if there is no such text
//   find(const Document&, const PathText&)     a pointer to the value, or an optional
//   exists(const Document&, const PathText&)   where `find` throws for what is missing
//   found(value)               what kind of value that is
//   findMember(const Document&, key)           of the root object: a pointer, or null
//   append(Document&, size_t count)            makes an array of numbers, one by one
// and with `append` also
//   buildSmall(Document&, size_t count)        makes an array of objects: see groups/Groups.h
//   replaceMember(Document&, key, int), removeMember(Document&, key)   of the root object
//   replaceItem(Document&, size_t index, int)                          of the root array
//
// They throw `std::runtime_error`, or what the library throws.

#include <cstddef>
#include <string>
#include <type_traits>

/// What `totals` counts, texts of strings in bytes; keys are not strings.
struct Totals {
    std::size_t elements = 0;
    std::size_t textBytes = 0;
};

template <template <class> class Operation, class Library, class = void>
inline constexpr bool k_has = false;
template <template <class> class Operation, class Library>
inline constexpr bool k_has<Operation, Library, std::void_t<Operation<Library>>> = true;

template <class Library>
using Collect = decltype(&Library::collect);
template <class Library>
using Write = decltype(&Library::write);
template <class Library>
using WriteCompact = decltype(&Library::writeCompact);
template <class Library>
using RoundTrip = decltype(&Library::roundTrip);
template <class Library>
using Copy = decltype(&Library::copy);
template <class Library>
using Equal = decltype(&Library::equal);
template <class Library>
using Iterate = decltype(&Library::totals);
template <class Library>
using SumIntegers = decltype(&Library::sumIntegers);
template <class Library>
using DestroysAtOnce = decltype(Library::k_destroysAtOnce);
template <class Library>
using Find = decltype(&Library::find);
template <class Library>
using Exists = decltype(&Library::exists);
template <class Library>
using FindMember = decltype(&Library::findMember);
template <class Library>
using Append = decltype(&Library::append);

template <class Library, class = void>
struct InputOf {
    using type = const std::string&;
};
template <class Library>
struct InputOf<Library, std::void_t<typename Library::Input>> {
    using type = typename Library::Input;
};
template <class Library>
using Input = typename InputOf<Library>::type;

/// Makes the document that rows other than those of reading begin with.
template <class Library>
void load(typename Library::Document& document, const std::string& text) {
    if constexpr (k_has<Collect, Library>) {
        Library::collect(document, text);
    } else {
        Input<Library> input(text);
        Library::read(document, input);
    }
}

#endif
