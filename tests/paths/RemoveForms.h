#ifndef ZO_TESSERA_TESTS_PATHS_REMOVEFORMS_H
#define ZO_TESSERA_TESTS_PATHS_REMOVEFORMS_H

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include <zo/Tessera/Element.h>

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

#endif
