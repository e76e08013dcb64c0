#ifndef ZO_TESSERA_TESTS_SUPPORT_FAILINGNEW_H
#define ZO_TESSERA_TESTS_SUPPORT_FAILINGNEW_H

#include <cstddef>
#include <cstdlib>
#include <new>

#include "support/NoMemory.h"

/// Replaces the program's allocation, the shared libraries' too, by one that can be told to fail.
/// The replacements cannot be inline: include this in one source of a program only.
struct FailingNew {
    static constexpr long k_unlimited = -1;

    /// How many allocations may still succeed; every further one throws, or the next one alone.
    inline static long s_left = k_unlimited;
    inline static bool s_onlyOnce = false;

    static void* allocate(std::size_t size) {
        if (s_left == 0) {
            s_left = s_onlyOnce ? k_unlimited : 0;
            throw std::bad_alloc();
        }
        if (s_left > 0) {
            --s_left;
        }
        void* const block = std::malloc(size > 0 ? size : 1);
        if (!block) {
            throw std::bad_alloc();
        }
        return block;
    }
};

void* operator new(std::size_t size) {
    return FailingNew::allocate(size);
}
void* operator new[](std::size_t size) {
    return FailingNew::allocate(size);
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete[](void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

NoMemory::NoMemory() {
    FailingNew::s_left = 0;
}
NoMemory::~NoMemory() {
    FailingNew::s_left = FailingNew::k_unlimited;
}

/// Runs `action` again and again while its 1st, 2nd, 3rd... allocation throws, until it finishes,
/// and calls `check` after each failure. Returns how often it failed.
/// `action` takes no argument; what it must not allocate itself is prepared by `prepare`.
template <class Prepare, class Action, class Check>
long failAllocations(bool onlyOnce, const Prepare& prepare, const Action& action,
                     const Check& check) {
    for (long count = 0;; ++count) {
        auto subject = prepare();
        bool failed = false;
        FailingNew::s_onlyOnce = onlyOnce;
        FailingNew::s_left = count;
        try {
            action(subject);
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        FailingNew::s_left = FailingNew::k_unlimited;
        FailingNew::s_onlyOnce = false;
        if (!failed) {
            return count;
        }
        check(subject);
    }
}

/// `failAllocations` twice: with each allocation behind the failing one throwing too, and with that
/// one alone. Returns how often it failed the first time.
template <class Prepare, class Action, class Check>
long failEachAllocation(const Prepare& prepare, const Action& action, const Check& check) {
    const long failures = failAllocations(false, prepare, action, check);
    failAllocations(true, prepare, action, check);
    return failures;
}

#endif
