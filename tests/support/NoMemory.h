#ifndef ZO_TESSERA_TESTS_SUPPORT_NOMEMORY_H
#define ZO_TESSERA_TESTS_SUPPORT_NOMEMORY_H

#include <ostream>

/// Every allocation throws while it lives. For all sources of a program of which one includes
/// `FailingNew.h`.
class NoMemory {
public:
    NoMemory();
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
    ~NoMemory();
};

/// What is out of `operator new`. Its bytes are those that `malloc` gave, a few more than were
/// asked for. For the same programs.
struct LiveMemory {
    static LiveMemory now();

    friend bool operator==(const LiveMemory& left, const LiveMemory& right) {
        return left.blocks == right.blocks && left.bytes == right.bytes;
    }
    friend std::ostream& operator<<(std::ostream& out, const LiveMemory& live) {
        return out << live.blocks << " blocks with " << live.bytes << " bytes";
    }

    long blocks;
    long bytes;
};

#endif
