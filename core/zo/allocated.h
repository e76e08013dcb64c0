#ifndef ZO_ALLOCATED_H
#define ZO_ALLOCATED_H

#include <memory>
#include <new>
#include <type_traits>

namespace zo {

/// Destroys what `makeAllocated` made. Holds no state, as its allocator holds none.
template <class T, class Alloc>
class AllocatedDeleter {
    using Traits = typename std::allocator_traits<Alloc>::template rebind_traits<T>;
    static_assert(Traits::is_always_equal::value);

public:
    void operator()(T* object) const noexcept {
        typename Traits::allocator_type allocator;
        object->~T();
        Traits::deallocate(allocator, object, 1);
    }
};

/// The single owner of an object in the memory of an allocator.
template <class T, class Alloc>
using Allocated = std::unique_ptr<T, AllocatedDeleter<T, Alloc>>;

/// A default-constructed `T`, which must not throw. Throws what the allocator throws.
template <class T, class Alloc>
Allocated<T, Alloc> makeAllocated() {
    static_assert(std::is_nothrow_default_constructible_v<T>);
    using Traits = typename std::allocator_traits<Alloc>::template rebind_traits<T>;
    typename Traits::allocator_type allocator;
    return Allocated<T, Alloc>(::new (Traits::allocate(allocator, 1)) T());
}

}  // namespace zo

#endif
