#include "tests/support/FailingAllocations.h"

#include <cstdlib>

namespace {

std::size_t allocations = 0;
std::size_t live = 0;
std::size_t failAt = 0; ///< Counted from 1; 0 for never.

bool isToFail() { return ++allocations == failAt; }

/// Null if the allocation fails.
void* take(std::size_t size) {
    void* const memory = std::malloc(size != 0 ? size : 1);
    live += memory != nullptr ? 1 : 0;
    return memory;
}

void giveBack(void* memory) {
    live -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

} // namespace

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);

// The linker puts these in the place of `malloc` and `calloc`.
void* __wrap_malloc(std::size_t size) { return isToFail() ? nullptr : __real_malloc(size); }
void* __wrap_calloc(std::size_t count, std::size_t size) {
    return isToFail() ? nullptr : __real_calloc(count, size);
}
}

void* operator new(std::size_t size) {
    if (void* memory = take(size))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void operator delete(void* memory) noexcept { giveBack(memory); }
void operator delete[](void* memory) noexcept { giveBack(memory); }
void operator delete(void* memory, std::size_t) noexcept { giveBack(memory); }
void operator delete[](void* memory, std::size_t) noexcept { giveBack(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { giveBack(memory); }

std::size_t allocationCount() { return allocations; }
std::size_t liveAllocations() { return live; }

FailingAllocation::FailingAllocation(std::size_t number) : m_number(allocations + number) {
    failAt = m_number;
}
FailingAllocation::~FailingAllocation() { failAt = 0; }
bool FailingAllocation::happened() const { return allocations >= m_number; }
