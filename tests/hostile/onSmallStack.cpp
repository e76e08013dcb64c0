#include "hostile/onSmallStack.h"

#include <pthread.h>

#include <exception>
#include <system_error>

namespace {

struct Task {
    const std::function<void()>& action;
    std::exception_ptr failure;
};

void* run(void* argument) {
    Task& task = *static_cast<Task*>(argument);
    try {
        task.action();
    } catch (...) {
        task.failure = std::current_exception();
    }
    return nullptr;
}

void check(int error, const char* what) {
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), what);
    }
}

struct Attributes {
    Attributes() { check(pthread_attr_init(&value), "pthread_attr_init"); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { pthread_attr_destroy(&value); }

    pthread_attr_t value;
};

}  // namespace

void onSmallStack(const std::function<void()>& action) {
    Attributes attributes;
    check(pthread_attr_setstacksize(&attributes.value, k_smallStack), "pthread_attr_setstacksize");
    Task task{action, nullptr};
    pthread_t thread{};
    check(pthread_create(&thread, &attributes.value, run, &task), "pthread_create");
    check(pthread_join(thread, nullptr), "pthread_join");
    if (task.failure) {
        std::rethrow_exception(task.failure);
    }
}
