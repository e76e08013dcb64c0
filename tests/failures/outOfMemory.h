#ifndef ZO_TESSERA_TESTS_FAILURES_OUTOFMEMORY_H
#define ZO_TESSERA_TESTS_FAILURES_OUTOFMEMORY_H

#include <functional>
#include <string>

#include "support/NoMemory.h"

/// \file
/// Want of memory, for all sources of this program. Only one of them can replace the allocation.

/// Too long to be kept inside a string, so that each copy allocates.
inline const std::string k_long = "a text that is too long to be kept inside the string";

/// A key that nothing has yet.
inline const std::string k_newKey = "new key " + k_long;

/// Calls `prepare` and `action` again and again, while the 1st, 2nd, 3rd... allocation of `action`
/// throws, until that finishes, and `check` after each failure. Returns how often it failed.
long failEachAllocation(const std::function<void()>& prepare, const std::function<void()>& action,
                        const std::function<void()>& check);

#endif
