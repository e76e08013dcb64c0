#ifndef ZO_TESSERA_TESTS_PATHS_REMOVEFORMS_H
#define ZO_TESSERA_TESTS_PATHS_REMOVEFORMS_H

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include <zo/Tessera/Element.h>

#include "support/dump.h"

/// Either way to name the pattern of `removeElement`.
struct RemoveForm {
    const char* name;
    void (*remove)(zo::Tessera::Element& asked,
                   const std::unique_ptr<zo::Tessera::Element>& pattern,
                   const zo::Tessera::Path& keyPath, const zo::Tessera::Path& arrayPath);
};

inline const RemoveForm k_removeForms[] = {
    {"Reference",
     [](zo::Tessera::Element& asked, const std::unique_ptr<zo::Tessera::Element>& pattern,
        const zo::Tessera::Path& keyPath, const zo::Tessera::Path& arrayPath) {
         asked.removeElement(std::as_const(*pattern), keyPath, arrayPath);
     }},
    {"Owner", [](zo::Tessera::Element& asked, const std::unique_ptr<zo::Tessera::Element>& pattern,
                 const zo::Tessera::Path& keyPath, const zo::Tessera::Path& arrayPath) {
         asked.removeElement(pattern, keyPath, arrayPath);
     }}};

/// The items of an array, each as its dump's line.
inline std::string itemsOf(const zo::Tessera::Element& array) {
    const std::string text = dump(array);
    return text.substr(text.find('\n') + 1);
}

#endif
