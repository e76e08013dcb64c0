#ifndef ZO_TESSERA_TESTS_HOSTILE_DEEPDOCUMENT_H
#define ZO_TESSERA_TESTS_HOSTILE_DEEPDOCUMENT_H

#include <cstddef>
#include <memory>
#include <string>

#include <zo/Tessera/Element.h>

#include "generation/written.h"

// The sanitizers take ten times the time and several times the memory for each level.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ZO_TESSERA_TESTS_SANITIZED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define ZO_TESSERA_TESTS_SANITIZED
#endif
#endif

#ifdef ZO_TESSERA_TESTS_SANITIZED
constexpr std::size_t k_depth = 30'000;
#else
constexpr std::size_t k_depth = 1'000'000;
#endif

enum class Nesting { arrays, objects, inTurn };

/// `k_depth` containers, each alone in the one before, in objects under the key "k", and one value
/// in the innermost.
class DeepDocument {
public:
    explicit DeepDocument(Nesting nesting) : m_nesting(nesting) {}

    bool isArray(std::size_t level) const;

    /// The JSON text, in either layout of the generator's.
    std::string text(const std::string& value = "true", Layout layout = Layout::oneLine) const;
    /// What stands before the value, but for the last key if the innermost container is an object.
    std::string opening(Layout layout = Layout::oneLine) const;
    /// That last key; empty in an array.
    std::string lastKey(Layout layout = Layout::oneLine) const;
    /// What stands behind the value.
    std::string closing(Layout layout = Layout::oneLine) const;

    /// The path of the value, and of the innermost container.
    /// @{
    std::string path() const { return pathOfLevel(k_depth); }
    std::string innermostPath() const { return pathOfLevel(k_depth - 1); }
    /// @}
    /// The schema path of the value.
    std::string schemaPath() const;

private:
    std::string pathOfLevel(std::size_t level) const;

    Nesting m_nesting;
};

/// Of both kinds of containers; the root is an array, which holds an object.
inline const DeepDocument k_mixed(Nesting::inTurn);

/// The last of the elements of which each is alone in the one before.
zo::Tessera::Element& deepestOf(zo::Tessera::Element& root);

/// The JSON text of such a tree whose innermost value, if there is one, is a boolean. Written
/// without the library's own generator.
std::string textOf(const zo::Tessera::Element& root);

#endif
