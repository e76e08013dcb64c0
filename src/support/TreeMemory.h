#ifndef ZO_TESSERA_SRC_SUPPORT_TREEMEMORY_H
#define ZO_TESSERA_SRC_SUPPORT_TREEMEMORY_H

#include <cstddef>
#include <new>
#include <utility>

#include <zo/Tessera/TreeAllocator.h>

#include "support/poison.h"

namespace zo::Tessera {

/// Memory for a tree that is made at once: handed out in order from slabs, each of which is freed
/// when nothing of it is in use any more, in whatever thread that is. What is given back is not
/// handed out again, so a tree that is edited takes its memory from `operator new`.
///
/// The first blocks come from there, too, for a small tree is not worth a slab, and the slabs grow
/// with the tree: what is handed out is always a fair part of what was taken.
///
/// A block of a slab begins eight bytes behind a multiple of sixteen, where `operator new` puts
/// none. So each block shows where it belongs, and none needs a header.
class TreeMemory {
    struct Page;
    struct Slab;

public:
    TreeMemory() noexcept = default;
    TreeMemory(const TreeMemory&) = delete;
    TreeMemory& operator=(const TreeMemory&) = delete;
    /// What was handed out stays.
    ~TreeMemory();

    /// While it lives, the calling thread's `allocateForTree` takes from `memory`, which must live
    /// as long.
    class Scope {
    public:
        explicit Scope(TreeMemory& memory) noexcept;
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();

    private:
        TreeMemory* m_outer;
    };

    /// While it lives, slabs are told once what the calling thread gives back of them in a row,
    /// for each telling costs as much as deleting a small element.
    class Releases {
    public:
        Releases() noexcept;
        Releases(const Releases&) = delete;
        Releases& operator=(const Releases&) = delete;
        ~Releases();

    private:
        friend class TreeMemory;

        void add(Slab* slab) noexcept {
            if (slab != m_slab) {
                return goOnWith(slab);
            }
            ++m_count;
        }
        void goOnWith(Slab* slab) noexcept;

        Releases* m_outer;
        Slab* m_slab = nullptr;
        std::size_t m_count = 0;  // of blocks of the slab
    };

    /// Aligned to eight bytes. The size is not 0, and far below the largest there is.
    void* allocate(std::size_t size) {
        const std::size_t length = lengthFor(size);
        if (length > static_cast<std::size_t>(m_end - m_next)) {
            return allocateElsewhere(size);
        }
        ++m_handedOut;
        void* const block = std::exchange(m_next, m_next + length);
        unpoison(block, size);
        return block;
    }

    static void* allocateOutside(std::size_t size) { return ::operator new(roundedUp(size)); }

    /// What `operator new` aligns as a slab's blocks are not: it may go by the size.
    static constexpr std::size_t roundedUp(std::size_t size) {
        return (size + k_granule - 1) & ~(k_granule - 1);
    }

    /// Takes back a block of any `TreeMemory`, or one from outside.
    static void release(void* block, std::size_t size) noexcept;

private:
    static constexpr std::size_t k_granule = 16;

    static constexpr std::size_t lengthFor(std::size_t size) { return roundedUp(size) + k_gap; }

    void* allocateElsewhere(std::size_t size);
    void startPage();
    void startSlab();
    void leaveSlab() noexcept;

    // What is left of the page.
    char* m_next = nullptr;
    char* m_end = nullptr;
    Slab* m_slab = nullptr;
    std::size_t m_pagesLeft = 0;  // of the slab
    std::size_t m_handedOut = 0;  // of the slab
    std::size_t m_slabPages = 0;  // of the slab, or of the last one
    std::size_t m_outside = 0;    // bytes from `operator new`
};

/// A new `T` in memory from `allocateForTree`. It is deleted as any other: its class must give the
/// memory to `releaseForTree`.
template <class T, class... Arguments>
T* newInTree(Arguments&&... arguments) {
    static_assert(alignof(T) <= 8);
    void* const memory = allocateForTree(1, sizeof(T));
    try {
        return ::new (memory) T(std::forward<Arguments>(arguments)...);
    } catch (...) {
        releaseForTree(memory, sizeof(T));
        throw;
    }
}

}  // namespace zo::Tessera

#endif
