#pragma once

#include "OVAT/IBlockManager.h"

#include <cstddef>
#include <vector>

namespace OVAT {

/// Block storage over bytes in memory that the caller owns and keeps alive.
class MemoryBlockManager : public IBlockManager {
public:
    /// A view of `size` bytes at `data`, which may be null when `size` is 0.
    MemoryBlockManager(const void* data, std::size_t size);

    /// Always returns true. Throws std::out_of_range if any of the bytes lie outside the storage.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    /// The size of the view in bytes.
    unsigned long long size() const { return m_size; }

private:
    const char* m_data;
    std::size_t m_size;
};

/// Block storage that owns its bytes.
class OwningMemoryBlockManager : public IBlockManager {
public:
    /// Takes over `bytes`. Pass them with std::move and nothing is copied.
    explicit OwningMemoryBlockManager(std::vector<char> bytes);

    /// Always returns true. Throws std::out_of_range if any of the bytes lie outside the storage.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    /// The size of the storage in bytes.
    unsigned long long size() const { return m_bytes.size(); }

private:
    std::vector<char> m_bytes;
};

} // namespace OVAT
