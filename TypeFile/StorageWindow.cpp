#include "TypeFile/StorageWindow.h"

#include <algorithm>

namespace TypeFile {

StorageWindow::StorageWindow(OVAT::IBlockManager& storage, unsigned long long storageSize,
                             std::size_t blockSize)
    : m_storage(storage), m_storageSize(storageSize),
      m_block(static_cast<std::size_t>(std::min<unsigned long long>(blockSize, storageSize))) {}

void StorageWindow::move(unsigned long long offset) {
    const unsigned long long count =
        std::min<unsigned long long>(m_block.size(), m_storageSize - offset);
    m_begin = m_end = 0; // A read that throws leaves nothing behind.
    m_storage.read(offset, m_block.data(), static_cast<long long>(count));
    m_begin = offset;
    m_end = offset + count;
}

} // namespace TypeFile
