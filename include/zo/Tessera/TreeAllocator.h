#ifndef ZO_TESSERA_TREEALLOCATOR_H
#define ZO_TESSERA_TREEALLOCATOR_H

#include <cstddef>
#include <limits>
#include <new>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// Where the memory of trees comes from and goes to: that of a tree that is being read or copied
/// from slabs of its own, any other from `operator new`. Memory may go back in any thread.
/// @{
ZO_TESSERA_EXPORT void* allocateForTree(std::size_t size);
ZO_TESSERA_EXPORT void releaseForTree(void* memory, std::size_t size) noexcept;
/// @}

/// The allocator of the containers in `Array` and `Object`. Not for types that must be aligned to
/// more than eight bytes.
template <class T>
class TreeAllocator {
public:
    using value_type = T;

    TreeAllocator() noexcept = default;
    template <class Other>
    TreeAllocator(const TreeAllocator<Other>&) noexcept {}

    T* allocate(std::size_t count) {
        static_assert(alignof(T) <= 8);
        if (count > (std::numeric_limits<std::size_t>::max() - k_granule) / sizeof(T)) {
            throw std::bad_array_new_length();
        }
        const std::size_t size = count * sizeof(T);
        return static_cast<T*>(count <= k_mostInTree ? allocateForTree(size)
                                                     : ::operator new(roundedUp(size)));
    }
    void deallocate(T* memory, std::size_t count) noexcept {
        releaseForTree(memory, count * sizeof(T));
    }

    friend bool operator==(const TreeAllocator&, const TreeAllocator&) noexcept { return true; }
    friend bool operator!=(const TreeAllocator&, const TreeAllocator&) noexcept { return false; }

private:
    /// More is for tables that outgrow their memory, which had better be used again.
    static constexpr std::size_t k_mostInTree = 4;
    /// `operator new` need not align to it unless the size is a multiple of it.
    static constexpr std::size_t k_granule = 16;

    static constexpr std::size_t roundedUp(std::size_t size) {
        return (size + k_granule - 1) / k_granule * k_granule;
    }
};

}  // namespace zo::Tessera

#endif
