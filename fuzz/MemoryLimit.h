#pragma once

#include <cstddef>

namespace Fuzz {

/// While this lives, `new` throws std::bad_alloc once more than `limit` bytes are in use.
class MemoryLimit {
public:
    explicit MemoryLimit(std::size_t limit);
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit();
};

/// What a target allows itself for an input: enough for a sound table of its size. A count in a
/// file may ask for any amount; how soon that ends decides how many inputs a second get their turn.
inline std::size_t memoryFor(std::size_t inputSize) {
    return (std::size_t{2} << 20) + 100 * inputSize;
}

} // namespace Fuzz
