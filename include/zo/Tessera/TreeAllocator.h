#ifndef ZO_TESSERA_TREEALLOCATOR_H
#define ZO_TESSERA_TREEALLOCATOR_H

#include <cstddef>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// Where the memory of trees comes from and goes to: that of a tree that is being read or copied
/// from slabs of its own, any other from `operator new`. Room for `count` things of `size` bytes is
/// aligned to eight bytes, and may be given back in any thread. Throws what `operator new` throws.
/// @{
ZO_TESSERA_EXPORT void* allocateForTree(std::size_t count, std::size_t size);
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
        return static_cast<T*>(allocateForTree(count, sizeof(T)));
    }
    void deallocate(T* memory, std::size_t count) noexcept {
        releaseForTree(memory, count * sizeof(T));
    }

    friend bool operator==(const TreeAllocator&, const TreeAllocator&) noexcept { return true; }
    friend bool operator!=(const TreeAllocator&, const TreeAllocator&) noexcept { return false; }
};

}  // namespace zo::Tessera

#endif
