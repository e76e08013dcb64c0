#include "support/BlockPool.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace zo::Tessera {

BlockPool::BlockPool() : m_ring{&m_ring, &m_ring, 0} {}

BlockPool::~BlockPool() {
    for (Block* block = m_ring.next; block != &m_ring;) {
        ::operator delete(std::exchange(block, block->next));
    }
}

void* BlockPool::allocate(void* pool, size_t size) {
    return static_cast<BlockPool*>(pool)->add(size);
}

void* BlockPool::reallocate(void* pool, void* memory, size_t size) {
    if (memory == nullptr) {
        return allocate(pool, size);
    }
    Block* const block = blockOf(memory);
    if (size <= block->capacity) {
        return memory;
    }
    void* const larger = allocate(pool, std::max(size, block->capacity + block->capacity / 2));
    std::memcpy(larger, memory, block->capacity);
    remove(block);
    return larger;
}

void BlockPool::release(void*, void* memory) noexcept {
    if (memory != nullptr) {
        remove(blockOf(memory));
    }
}

void BlockPool::remove(Block* block) noexcept {
    block->previous->next = block->next;
    block->next->previous = block->previous;
    ::operator delete(block);
}

void* BlockPool::add(size_t capacity) {
    void* memory = nullptr;
    try {
        if (capacity > std::numeric_limits<size_t>::max() - sizeof(Block)) {
            throw std::bad_alloc();
        }
        memory = ::operator new(sizeof(Block) + capacity);
    } catch (...) {
        m_failed = true;
        throw;
    }
    auto* const block = new (memory) Block{m_ring.previous, &m_ring, capacity};
    block->previous->next = block;
    m_ring.previous = block;
    return block + 1;
}

}  // namespace zo::Tessera
