#include <algorithm>
#include <iterator>
#include <ranges>

#include <zo/Tessera.h>

using namespace zo::Tessera;

// What the containers are to C++20. That this compiles is the test.

static_assert(std::bidirectional_iterator<Array::iterator>);
static_assert(std::bidirectional_iterator<Object::const_iterator>);
static_assert(std::ranges::bidirectional_range<Array> && std::ranges::common_range<Array>);
static_assert(std::ranges::bidirectional_range<const Array>);
static_assert(std::ranges::bidirectional_range<Object> && std::ranges::sized_range<Object>);
static_assert(std::ranges::bidirectional_range<const Object>);
static_assert(!std::ranges::range<Element>);

static_assert(std::equality_comparable<Dom>);
static_assert(!std::equality_comparable<Element> && !std::equality_comparable<Array>);
static_assert(std::convertible_to<Element&, int> && std::convertible_to<Element&, std::string>);
static_assert(!std::convertible_to<Element&, double> &&
              std::convertible_to<const Element&, double>);

namespace {

[[maybe_unused]] bool allAreNumbers(const Array& array) {
    return std::ranges::all_of(
        array, [](EType type) { return type == etNumber; }, &Element::type);
}

[[maybe_unused]] auto keyed(const Object& object, const std::string& key) {
    return std::ranges::find(object, key, &Object::value_type::first);
}

}  // namespace
