#include "tests/support/RunOnStack.h"

#include "tests/support/BuildKind.h"

#include <pthread.h>

#include <stdexcept>

namespace RTTITest {

namespace {

void* call(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

void check(int error) {
    if (error != 0)
        throw std::runtime_error("no thread with a stack of that size");
}

} // namespace

void runOnStack(std::size_t bytes, const std::function<void()>& work) {
    pthread_attr_t attributes;
    check(pthread_attr_init(&attributes));
    check(pthread_attr_setstacksize(&attributes, bytes));
    pthread_t thread{};
    const int error =
        pthread_create(&thread, &attributes, call, const_cast<std::function<void()>*>(&work));
    pthread_attr_destroy(&attributes);
    check(error);
    check(pthread_join(thread, nullptr));
}

std::size_t smallStack() { return std::size_t{IS_OPTIMISED && !HAS_SANITIZERS ? 1 : 8} << 20; }

} // namespace RTTITest
