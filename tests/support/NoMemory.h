#ifndef ZO_TESSERA_TESTS_SUPPORT_NOMEMORY_H
#define ZO_TESSERA_TESTS_SUPPORT_NOMEMORY_H

/// Every allocation throws while it lives. For all sources of a program of which one includes
/// `FailingNew.h`.
class NoMemory {
public:
    NoMemory();
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
    ~NoMemory();
};

#endif
