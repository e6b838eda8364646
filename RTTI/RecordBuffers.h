#pragma once

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>

namespace RTTI {

/// The bytes of the records that are open, each with a zero byte behind it.
///
/// Records are opened and closed like a stack, and most of them are small: those lie one behind the
/// other in one block, as long as there is room. Others have memory of their own; under
/// AddressSanitizer all have, so that it sees each record's end.
class RecordBuffers {
public:
    // cppcheck-suppress uninitMemberVar
    RecordBuffers() {} // Leaves the block as it is.
    RecordBuffers(const RecordBuffers&) = delete;
    RecordBuffers& operator=(const RecordBuffers&) = delete;

    /// Room for a record of `size` bytes. Throws std::bad_alloc.
    char* take(std::size_t size) {
        char* bytes = m_block + m_used;
        if (size < BLOCK_SIZE - m_used)
            m_used += size + 1;
        else
            bytes = allocate(size + 1);
        bytes[size] = '\0';
        return bytes;
    }

    /// The bytes that were taken last, or null.
    void giveBack(char* bytes) {
        const std::less<const char*> isBefore;
        if (isBefore(bytes, m_block) || !isBefore(bytes, m_block + BLOCK_SIZE))
            std::free(bytes);
        else
            m_used = static_cast<std::size_t>(bytes - m_block);
    }

private:
    static char* allocate(std::size_t size) {
        if (void* const bytes = std::malloc(size))
            return static_cast<char*>(bytes);
        throw std::bad_alloc();
    }

#if defined(__SANITIZE_ADDRESS__)
#define RTTI_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define RTTI_ADDRESS_SANITIZER 1
#endif
#endif
#if defined(RTTI_ADDRESS_SANITIZER)
    static constexpr std::size_t BLOCK_SIZE = 1; // Less than the smallest record and its zero byte.
#else
    static constexpr std::size_t BLOCK_SIZE = 8192;
#endif

    std::size_t m_used = 0;
    char m_block[BLOCK_SIZE];
};

} // namespace RTTI
