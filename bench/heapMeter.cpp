#include "heapMeter.h"

#include <malloc.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>

// What glibc has under its public names, too.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

bool isMetering = false;
HeapUse current;

long sizeOf(void* block) {
    constexpr std::size_t headerSize = 8;
    return static_cast<long>(malloc_usable_size(block) + headerSize);
}

void add(long bytes, long blocks) {
    current.bytes += bytes;
    current.blocks += blocks;
    current.peak = std::max(current.peak, current.bytes);
}

void* taken(void* block) {
    if (isMetering && block) {
        add(sizeOf(block), 1);
    }
    return block;
}

void givenBack(void* block) {
    if (isMetering && block) {
        add(-sizeOf(block), -1);
    }
}

}  // namespace

HeapMeter::HeapMeter() {
    current = HeapUse();
    isMetering = true;
}

HeapMeter::~HeapMeter() {
    isMetering = false;
}

HeapUse HeapMeter::use() const {
    return current;
}

// Seen by all libraries of the process, which otherwise would not go through them.
#pragma GCC visibility push(default)
extern "C" {

void* malloc(std::size_t size) {
    return taken(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
    return taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) {
    if (!isMetering) {
        return __libc_realloc(block, size);
    }
    const long before = block ? sizeOf(block) : 0;
    void* const moved = __libc_realloc(block, size);
    if (moved) {
        add(sizeOf(moved) - before, block ? 0 : 1);
    } else if (block && size == 0) {
        add(-before, -1);
    }
    return moved;
}

void free(void* block) {
    givenBack(block);
    __libc_free(block);
}

void* memalign(std::size_t alignment, std::size_t size) {
    return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    void* const made = memalign(alignment, size);
    if (!made) {
        return ENOMEM;
    }
    *block = made;
    return 0;
}

}  // extern "C"
#pragma GCC visibility pop
