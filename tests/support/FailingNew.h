#ifndef ZO_TESSERA_TESTS_SUPPORT_FAILINGNEW_H
#define ZO_TESSERA_TESTS_SUPPORT_FAILINGNEW_H

#include <malloc.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "support/NoMemory.h"

/// Replaces the program's allocation, the shared libraries' too, by one that can be told to fail,
/// and that counts. The replacements cannot be inline: include this in one source of a program
/// only.
struct FailingNew {
    static constexpr long k_unlimited = -1;
    static constexpr std::align_val_t k_usual{__STDCPP_DEFAULT_NEW_ALIGNMENT__};

    /// How many allocations may still succeed; every further one throws, or the next one alone.
    inline static long s_left = k_unlimited;
    inline static bool s_onlyOnce = false;

    /// What is out.
    /// @{
    inline static std::atomic<long> s_blocks = 0;
    inline static std::atomic<long> s_bytes = 0;
    /// @}

    static void* allocate(std::size_t size, std::align_val_t alignment = k_usual) {
        if (s_left == 0) {
            s_left = s_onlyOnce ? k_unlimited : 0;
            throw std::bad_alloc();
        }
        if (s_left > 0) {
            --s_left;
        }
        void* const block = alignment == k_usual
                                ? std::malloc(size > 0 ? size : 1)
                                : std::aligned_alloc(static_cast<std::size_t>(alignment), size);
        if (!block) {
            throw std::bad_alloc();
        }
        ++s_blocks;
        s_bytes += static_cast<long>(malloc_usable_size(block));
        return block;
    }

    static void release(void* block) noexcept {
        if (block) {
            --s_blocks;
            s_bytes -= static_cast<long>(malloc_usable_size(block));
            std::free(block);
        }
    }
};

void* operator new(std::size_t size) {
    return FailingNew::allocate(size);
}
void* operator new[](std::size_t size) {
    return FailingNew::allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    try {
        return FailingNew::allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return FailingNew::allocate(size, alignment);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
    try {
        return FailingNew::allocate(size, alignment);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* block) noexcept {
    FailingNew::release(block);
}
void operator delete[](void* block) noexcept {
    FailingNew::release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    FailingNew::release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    FailingNew::release(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
    FailingNew::release(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    FailingNew::release(block);
}

LiveMemory LiveMemory::now() {
    return {FailingNew::s_blocks, FailingNew::s_bytes};
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
