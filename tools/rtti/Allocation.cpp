// How the program allocates where mimalloc gives the memory. That is compiled as C as Debian has
// it: its own `new` ends the process where memory fails, for it cannot throw. This one throws.

#include <cstdlib>
#include <new>

namespace {

template <typename Allocate> void* allocated(const Allocate& allocate) {
    if (void* const memory = allocate())
        return memory;
    throw std::bad_alloc();
}

/// C's functions ask for a size that the alignment divides.
std::size_t roundedUp(std::size_t size, std::size_t alignment) {
    return (size + alignment - 1) / alignment * alignment;
}

} // namespace

void* operator new(std::size_t size) {
    return allocated([=] { return std::malloc(size); });
}

void* operator new[](std::size_t size) { return operator new(size); }

void* operator new(std::size_t size, std::align_val_t alignment) {
    const auto bytes = static_cast<std::size_t>(alignment);
    return allocated([=] { return std::aligned_alloc(bytes, roundedUp(size, bytes)); });
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
    return operator new(size, alignment);
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
