#ifndef ZO_TESSERA_SRC_SUPPORT_POISON_H
#define ZO_TESSERA_SRC_SUPPORT_POISON_H

#include <cstddef>

/// \file
/// Shows AddressSanitizer which parts of a block from `operator new` are in use. Without it nothing
/// happens here.

#if defined(__SANITIZE_ADDRESS__)
#define ZO_TESSERA_WATCHED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZO_TESSERA_WATCHED 1
#endif
#endif

#ifdef ZO_TESSERA_WATCHED
#include <sanitizer/asan_interface.h>
#endif

namespace zo::Tessera {

#ifdef ZO_TESSERA_WATCHED
/// How much is left unused between two parts, for what runs over an end to be seen.
constexpr std::size_t k_gap = 16;

inline void poison(const void* memory, std::size_t size) {
    __asan_poison_memory_region(memory, size);
}
inline void unpoison(const void* memory, std::size_t size) {
    __asan_unpoison_memory_region(memory, size);
}
#else
constexpr std::size_t k_gap = 0;

inline void poison(const void*, std::size_t) {}
inline void unpoison(const void*, std::size_t) {}
#endif

}  // namespace zo::Tessera

#endif
