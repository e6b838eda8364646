#include "fuzz/MemoryLimit.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace {

thread_local Fuzz::MemoryLimit* inForce = nullptr;

} // namespace

namespace Fuzz {

MemoryLimit::MemoryLimit(MemoryAllowance allowance) : m_outer(inForce), m_allowance(allowance) {
    inForce = this;
}

MemoryLimit::~MemoryLimit() { inForce = m_outer; }

bool MemoryLimit::allows(std::size_t size) {
    for (const MemoryLimit* limit = inForce; limit != nullptr; limit = limit->m_outer) {
        const auto total = static_cast<std::int64_t>(limit->m_allowance.total);
        if (size > limit->m_allowance.block ||
            limit->m_inUse + static_cast<std::int64_t>(size) > total)
            return false;
    }
    return true;
}

void MemoryLimit::count(std::int64_t size) {
    for (MemoryLimit* limit = inForce; limit != nullptr; limit = limit->m_outer) {
        limit->m_inUse += size;
        limit->m_mostInUse = std::max(limit->m_mostInUse, limit->m_inUse);
    }
}

} // namespace Fuzz

// Replaced for the whole program: the sanitizers' own operators end it where memory is short. The
// link option --wrap leads calls of malloc and free in what is linked into the program
// here.
// NOLINTBEGIN(bugprone-reserved-identifier)

extern "C" void* __real_malloc(std::size_t size);
extern "C" void __real_free(void* block);

extern "C" void* __wrap_malloc(std::size_t size) {
    if (inForce == nullptr)
        return __real_malloc(size);
    void* const block = Fuzz::MemoryLimit::allows(size) ? __real_malloc(size) : nullptr;
    Fuzz::MemoryLimit::count(static_cast<std::int64_t>(::malloc_usable_size(block)));
    return block;
}

extern "C" void __wrap_free(void* block) {
    if (inForce != nullptr)
        Fuzz::MemoryLimit::count(-static_cast<std::int64_t>(::malloc_usable_size(block)));
    __real_free(block);
}

/// Small, so that few pages are fresh: the memory of an input is not worth keeping for the next
/// thousand.
extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1:max_allocation_size_mb=512:detect_leaks=1:"
           "quarantine_size_mb=1:malloc_context_size=8";
}

// NOLINTEND(bugprone-reserved-identifier)

void* operator new(std::size_t size) {
    if (void* block = __wrap_malloc(size != 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return __wrap_malloc(size != 0 ? size : 1);
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void operator delete(void* block) noexcept { __wrap_free(block); }
void operator delete(void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete[](void* block) noexcept { __wrap_free(block); }
void operator delete[](void* block, std::size_t) noexcept { __wrap_free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { __wrap_free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { __wrap_free(block); }
