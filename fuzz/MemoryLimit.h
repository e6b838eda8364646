#pragma once

#include <cstddef>
#include <cstdint>

namespace Fuzz {

/// How much memory an input may take, in bytes.
struct MemoryAllowance {
    std::size_t block; ///< The largest block.
    std::size_t total; ///< All blocks that are in use at one time.
};

/// While this lives, `new` throws std::bad_alloc in its thread for what exceeds the allowance, and
/// `malloc` gives null. Within a limit there may be another, and both hold.
class MemoryLimit {
public:
    explicit MemoryLimit(MemoryAllowance allowance);
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit();

    /// The most bytes that were in use at one time so far, of what was allocated under the limit.
    std::size_t mostInUse() const { return static_cast<std::size_t>(m_mostInUse); }

    // For the allocation functions.
    static bool allows(std::size_t size);
    static void count(std::int64_t size);

private:
    MemoryLimit* m_outer;
    MemoryAllowance m_allowance;
    std::int64_t m_inUse = 0; ///< Negative where older blocks were given back.
    std::int64_t m_mostInUse = 0;
};

/// What a target allows itself for an input: enough for a sound table of its size. A count in a
/// file may ask for any amount, and fresh pages cost more time than all else: how soon that ends
/// decides how many inputs a second get their turn.
inline MemoryAllowance memoryFor(std::size_t inputSize) {
    return {(std::size_t{32} << 10) + 32 * inputSize, (std::size_t{1} << 20) + 200 * inputSize};
}

} // namespace Fuzz
