#ifndef ZO_TESSERA_TESTS_PATHS_NOMEMORY_H
#define ZO_TESSERA_TESTS_PATHS_NOMEMORY_H

/// Every allocation fails while it lives. Its members stand in the one source of this program that
/// replaces the allocation.
class NoMemory {
public:
    NoMemory();
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
    ~NoMemory();
};

#endif
