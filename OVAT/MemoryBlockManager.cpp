#include "OVAT/MemoryBlockManager.h"

#include "OVAT/BlockRange.h"

#include <algorithm>
#include <utility>

namespace OVAT {

MemoryBlockManager::MemoryBlockManager(const void* data, std::size_t size)
    : m_data(static_cast<const char*>(data)), m_size(size) {}

bool MemoryBlockManager::read(unsigned long long offset, void* buffer, long long count) {
    checkBlockRange(offset, count, m_size);
    std::copy_n(m_data + offset, count, static_cast<char*>(buffer));
    return true;
}

OwningMemoryBlockManager::OwningMemoryBlockManager(std::vector<char> bytes)
    : m_bytes(std::move(bytes)) {}

bool OwningMemoryBlockManager::read(unsigned long long offset, void* buffer, long long count) {
    return MemoryBlockManager(m_bytes.data(), m_bytes.size()).read(offset, buffer, count);
}

} // namespace OVAT
