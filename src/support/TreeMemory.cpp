#include "support/TreeMemory.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <limits>

#include <sys/mman.h>

namespace zo::Tessera {

namespace {

// A page begins at a multiple of its size, so that each block leads to its page.
constexpr std::size_t k_pageSize = 4096;
constexpr std::size_t k_mostPages = 16;

// Where in a page the first block begins.
constexpr std::size_t k_offset = 8;

// Larger blocks would leave much of a page unused.
constexpr std::size_t k_largestBlock = 256;

// More at a time are for tables that outgrow their memory, which had better be used again.
constexpr std::size_t k_mostTogether = 4;

// Rounded up, more might be 0.
constexpr std::size_t k_largestSize = std::numeric_limits<std::size_t>::max() / 2;

// A tree that takes no more is a small one.
constexpr std::size_t k_smallTree = 4096;

// Asked for with each allocation and each release. The model spares a call, and costs sixteen bytes
// of what the loader keeps for libraries that come late.
// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables)
[[gnu::tls_model("initial-exec")]] thread_local TreeMemory* t_current = nullptr;
[[gnu::tls_model("initial-exec")]] thread_local TreeMemory::Releases* t_releases = nullptr;
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

/// Has the system map all pages now: one by one, as they are first written to, costs as much as
/// filling them. A system that does not know this does not do it.
void mapAtOnce([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) noexcept {
#ifdef MADV_POPULATE_WRITE
    madvise(memory, size, MADV_POPULATE_WRITE);
#endif
}

}  // namespace

/// Stands at the beginning of each page.
struct TreeMemory::Page {
    Slab* m_slab;
};

/// Stands at the beginning of a slab's first page.
struct TreeMemory::Slab {
    static constexpr std::size_t k_open = std::size_t{1} << 63;

    Page m_page{this};
    // The blocks in use; while more may be handed out, `k_open` less those given back.
    std::atomic<std::size_t> m_inUse{k_open};

    [[gnu::noinline]] void release(std::size_t count) noexcept {
        if (m_inUse.fetch_sub(count, std::memory_order_acq_rel) == count) {
            this->~Slab();
            ::operator delete(this, std::align_val_t(k_pageSize));
        }
    }
};

TreeMemory::~TreeMemory() {
    leaveSlab();
}

TreeMemory::Scope::Scope(TreeMemory& memory) noexcept
    : m_outer(std::exchange(t_current, &memory)) {}

TreeMemory::Scope::~Scope() {
    t_current = m_outer;
}

TreeMemory::Releases::Releases() noexcept : m_outer(std::exchange(t_releases, this)) {}

TreeMemory::Releases::~Releases() {
    t_releases = m_outer;
    goOnWith(nullptr);
}

[[gnu::noinline]] void TreeMemory::Releases::goOnWith(Slab* slab) noexcept {
    if (m_slab != nullptr) {
        m_slab->release(m_count);
    }
    m_slab = slab;
    m_count = 1;
}

void* TreeMemory::allocateElsewhere(std::size_t size) {
    if (m_outside < k_smallTree || size > k_largestBlock) {
        m_outside += roundedUp(size);
        return allocateOutside(size);
    }
    startPage();
    return allocate(size);
}

void TreeMemory::startPage() {
    static_assert(sizeof(Page) <= k_offset);
    if (m_pagesLeft == 0) {
        startSlab();
        return;
    }
    --m_pagesLeft;
    unpoison(m_end, sizeof(Page));
    ::new (m_end) Page{m_slab};
    m_next = m_end + k_offset;
    m_end += k_pageSize;
}

void TreeMemory::startSlab() {
    const std::size_t pages = std::clamp<std::size_t>(2 * m_slabPages, 1, k_mostPages);
    const std::size_t size = pages * k_pageSize;
    void* const memory = ::operator new(size, std::align_val_t(k_pageSize));
    if (pages == k_mostPages) {
        mapAtOnce(memory, size);
    }
    leaveSlab();
    m_slab = ::new (memory) Slab();
    m_slabPages = pages;
    m_pagesLeft = pages - 1;
    m_next = static_cast<char*>(memory) + roundedUp(sizeof(Slab)) + k_offset;
    m_end = static_cast<char*>(memory) + k_pageSize;
    poison(m_slab + 1, size - sizeof(Slab));
}

void TreeMemory::leaveSlab() noexcept {
    if (m_slab != nullptr) {
        m_slab->release(Slab::k_open - m_handedOut);
        m_slab = nullptr;
        m_handedOut = 0;
    }
}

void TreeMemory::release(void* block, std::size_t size) noexcept {
    static_assert(__STDCPP_DEFAULT_NEW_ALIGNMENT__ >= k_granule);
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    if (address % k_granule != k_offset) {
        ::operator delete(block);
        return;
    }
    poison(block, size);
    char* const page = static_cast<char*>(block) - address % k_pageSize;
    Slab* const slab = reinterpret_cast<Page*>(page)->m_slab;
    if (t_releases != nullptr) {
        return t_releases->add(slab);
    }
    slab->release(1);
}

void* allocateForTree(std::size_t count, std::size_t size) {
    if (count - 1 < k_mostTogether) {
        return t_current != nullptr ? t_current->allocate(count * size)
                                    : TreeMemory::allocateOutside(count * size);
    }
    if (count > k_largestSize / size) {
        throw std::bad_array_new_length();
    }
    return TreeMemory::allocateOutside(std::max(count * size, std::size_t{1}));
}

void releaseForTree(void* memory, std::size_t size) noexcept {
    TreeMemory::release(memory, size);
}

}  // namespace zo::Tessera
