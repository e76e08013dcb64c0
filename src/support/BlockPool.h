#ifndef ZO_TESSERA_SRC_SUPPORT_BLOCKPOOL_H
#define ZO_TESSERA_SRC_SUPPORT_BLOCKPOOL_H

#include <cstddef>

namespace zo::Tessera {

/// The memory of handles of a C library that does not expect an allocation to fail: one that fails
/// throws `std::bad_alloc` through it. What the library thereby loses sight of is freed with the
/// pool, which must outlive the handles.
///
/// The memory comes from `operator new`, and a block that grows does so by half at least, so that
/// growing in small steps costs no more than the size reached.
class BlockPool {
public:
    BlockPool();
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;
    ~BlockPool();

    /// Whether an allocation ever failed. A handle may then have noted a size that it did not get.
    bool failed() const { return m_failed; }

    /// \name What the C library calls
    /// As `malloc`, `realloc` and `free`, which never return null. `pool` is the `BlockPool`.
    /// @{
    static void* allocate(void* pool, size_t size);
    static void* reallocate(void* pool, void* memory, size_t size);
    static void release(void* pool, void* memory) noexcept;
    /// @}

private:
    /// Stands before the memory handed out. The blocks are a ring.
    struct alignas(std::max_align_t) Block {
        Block* previous;
        Block* next;
        size_t capacity;
    };

    static Block* blockOf(void* memory) { return static_cast<Block*>(memory) - 1; }
    static void remove(Block* block) noexcept;
    void* add(size_t capacity);

    Block m_ring;  // before the first block and behind the last, with no memory of its own
    bool m_failed = false;
};

}  // namespace zo::Tessera

#endif
