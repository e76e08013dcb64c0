#include "failures/outOfMemory.h"

#include "support/FailingNew.h"

long failEachAllocation(const std::function<void()>& prepare, const std::function<void()>& action,
                        const std::function<void()>& check) {
    // What is prepared and checked is the callers' own.
    return failEachAllocation(
        [&] {
            prepare();
            return 0;
        },
        [&](int) { action(); }, [&](int) { check(); });
}
