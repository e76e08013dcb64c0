#ifndef ZO_TESSERA_TESTS_THREADS_RESULTSOFTHREADS_H
#define ZO_TESSERA_TESTS_THREADS_RESULTSOFTHREADS_H

#include <atomic>
#include <cstddef>
#include <set>
#include <string>
#include <thread>
#include <vector>

constexpr std::size_t k_threads = 8;

/// Calls `work` in `k_threads` threads, which wait for each other before they begin, and gives the
/// distinct results.
template <class Work>
std::set<std::string> resultsOfThreads(const Work& work) {
    std::vector<std::string> results(k_threads);
    std::atomic<std::size_t> missing(k_threads);
    std::vector<std::thread> threads;
    for (std::string& result : results) {
        threads.emplace_back([&work, &result, &missing] {
            --missing;
            while (missing > 0) {
                std::this_thread::yield();
            }
            result = work();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return std::set<std::string>(results.begin(), results.end());
}

#endif
