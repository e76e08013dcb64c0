#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <pthread.h>

#include <stdexcept>

#include "hostile/onSmallStack.h"

#if defined(__SANITIZE_THREAD__)
#define ZO_TESSERA_TESTS_THREAD_SANITIZER
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define ZO_TESSERA_TESTS_THREAD_SANITIZER
#endif
#endif

namespace {

#ifdef ZO_TESSERA_TESTS_THREAD_SANITIZER
// That sanitizer makes each stack as large as its own data of a thread needs: some 900 KiB. The
// other ones leave it as it is.
constexpr size_t k_largestStack = 1024 * 1024;
#else
constexpr size_t k_largestStack = 256 * 1024;
#endif

size_t stackOfThisThread() {
    pthread_attr_t attributes;
    EXPECT_EQ(pthread_getattr_np(pthread_self(), &attributes), 0);
    size_t size = 0;
    EXPECT_EQ(pthread_attr_getstacksize(&attributes, &size), 0);
    pthread_attr_destroy(&attributes);
    return size;
}

TEST(SmallStack, IsNoLargerThanItSays) {
    size_t size = 0;
    onSmallStack([&] { size = stackOfThisThread(); });
    EXPECT_LE(size, k_largestStack);
}

TEST(SmallStack, PassesExceptionsOn) {
    EXPECT_THROW(onSmallStack([] { throw std::out_of_range("past the end"); }), std::out_of_range);
}

TEST(SmallStack, CountsTheChecksOfTheActionAsTheTests) {
    EXPECT_NONFATAL_FAILURE_ON_ALL_THREADS(onSmallStack([] { ADD_FAILURE() << "seen"; }), "seen");
}

}  // namespace
