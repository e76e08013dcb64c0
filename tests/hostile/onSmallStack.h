#ifndef ZO_TESSERA_TESTS_HOSTILE_ONSMALLSTACK_H
#define ZO_TESSERA_TESTS_HOSTILE_ONSMALLSTACK_H

#include <cstddef>
#include <functional>

constexpr std::size_t k_smallStack = 256 * 1024;

/// Runs `action` to its end on a thread whose stack has `k_smallStack` bytes. What it throws comes
/// out here; the checks that it makes are those of the test.
void onSmallStack(const std::function<void()>& action);

#endif
