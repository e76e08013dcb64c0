#ifndef CORE_FAILINGALLOCATOR_H
#define CORE_FAILINGALLOCATOR_H

#include <cstddef>
#include <memory>
#include <new>

/// What all `FailingAllocator`s share, however a container rebinds them.
struct AllocationCount {
    static constexpr int k_unlimited = -1;

    /// How many allocations may still succeed; every further one throws.
    inline static int s_left = k_unlimited;
    /// How many blocks are out.
    inline static int s_live = 0;
    /// How many allocations were ever made.
    inline static int s_made = 0;
};

/// An allocator that throws `std::bad_alloc` after as many allocations as the test lets succeed.
template <class T>
struct FailingAllocator {
    using value_type = T;

    FailingAllocator() = default;
    template <class Other>
    FailingAllocator(const FailingAllocator<Other>&) noexcept {}

    T* allocate(std::size_t count) {
        if (AllocationCount::s_left == 0) {
            throw std::bad_alloc();
        }
        if (AllocationCount::s_left > 0) {
            --AllocationCount::s_left;
        }
        ++AllocationCount::s_live;
        ++AllocationCount::s_made;
        return std::allocator<T>().allocate(count);
    }

    void deallocate(T* block, std::size_t count) noexcept {
        --AllocationCount::s_live;
        std::allocator<T>().deallocate(block, count);
    }

    friend bool operator==(const FailingAllocator&, const FailingAllocator&) { return true; }
    friend bool operator!=(const FailingAllocator&, const FailingAllocator&) { return false; }
};

/// Lets the next `count` allocations succeed and no more, until the end of the scope.
class AllocationLimit {
public:
    explicit AllocationLimit(int count) { AllocationCount::s_left = count; }
    AllocationLimit(const AllocationLimit&) = delete;
    AllocationLimit& operator=(const AllocationLimit&) = delete;
    ~AllocationLimit() { AllocationCount::s_left = AllocationCount::k_unlimited; }
};

#endif
