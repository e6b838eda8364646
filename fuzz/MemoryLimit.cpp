#include "fuzz/MemoryLimit.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace Fuzz {

namespace {

std::atomic<std::size_t> bytesInUse{0};
std::atomic<std::size_t> bytesAllowed{SIZE_MAX};

void* allocate(std::size_t size) {
    if (size > bytesAllowed || bytesInUse > bytesAllowed - size)
        return nullptr;
    void* block = std::malloc(size != 0 ? size : 1);
    if (block != nullptr)
        bytesInUse += ::malloc_usable_size(block);
    return block;
}

void release(void* block) {
    if (block == nullptr)
        return;
    bytesInUse -= ::malloc_usable_size(block);
    std::free(block);
}

} // namespace

MemoryLimit::MemoryLimit(std::size_t limit) { bytesAllowed = bytesInUse + limit; }
MemoryLimit::~MemoryLimit() { bytesAllowed = SIZE_MAX; }

} // namespace Fuzz

// Replaced for the whole program: the sanitizers' own operators end it where memory is short.

void* operator new(std::size_t size) {
    if (void* block = Fuzz::allocate(size))
        return block;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Fuzz::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return Fuzz::allocate(size);
}
void operator delete(void* block) noexcept { Fuzz::release(block); }
void operator delete[](void* block) noexcept { Fuzz::release(block); }
void operator delete(void* block, std::size_t) noexcept { Fuzz::release(block); }
void operator delete[](void* block, std::size_t) noexcept { Fuzz::release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Fuzz::release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Fuzz::release(block); }
