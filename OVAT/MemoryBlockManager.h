#pragma once

#include "OVAT/IBlockManager.h"

#include <cstddef>
#include <vector>

namespace OVAT {

/// Block storage over bytes in memory that somebody else owns and keeps alive.
class MemoryBlockManager : public IBlockManager {
public:
    /// A view of `size` bytes at `data`, which may be null when `size` is 0.
    MemoryBlockManager(const void* data, std::size_t size);

    /// Always true. Throws std::out_of_range where the bytes do not all lie in the storage.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    /// Bytes of the view.
    unsigned long long size() const { return m_size; }

private:
    const char* m_data;
    std::size_t m_size;
};

/// Block storage over bytes of its own.
class OwningMemoryBlockManager : public IBlockManager {
public:
    /// Takes the bytes; with std::move nothing is copied.
    explicit OwningMemoryBlockManager(std::vector<char> bytes);

    /// Always true. Throws std::out_of_range where the bytes do not all lie in the storage.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    /// Bytes of the storage.
    unsigned long long size() const { return m_bytes.size(); }

private:
    std::vector<char> m_bytes;
};

} // namespace OVAT
