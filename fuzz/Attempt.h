#pragma once

#include "fuzz/MemoryLimit.h"

#include <cstddef>
#include <new>
#include <stdexcept>

namespace Fuzz {

/// Calls `ask` on an input of `size` bytes, within the memory that one of its size may take. That
/// the storage or the allocator throws is a clean end. Always 0, what a target answers.
template <typename Ask> int attempt(std::size_t size, const Ask& ask) {
    const MemoryLimit limit(memoryFor(size));
    try {
        ask();
    } catch (const std::out_of_range&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return 0;
}

} // namespace Fuzz
