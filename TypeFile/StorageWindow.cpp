#include "TypeFile/StorageWindow.h"

#include <algorithm>

namespace TypeFile {

StorageWindow::StorageWindow(OVAT::IBlockManager& storage, unsigned long long storageSize,
                             std::size_t blockSize)
    : m_storage(storage), m_storageSize(storageSize),
      m_blockSize(static_cast<std::size_t>(std::min<unsigned long long>(blockSize, storageSize))),
      m_block(std::make_unique<char[]>(m_blockSize + READABLE_BEHIND)) {}

void StorageWindow::move(unsigned long long offset) {
    const unsigned long long count =
        std::min<unsigned long long>(m_blockSize, m_storageSize - offset);
    m_begin = m_end = 0; // A read that throws leaves nothing behind.
    m_storage.read(offset, m_block.get(), static_cast<long long>(count));
    m_begin = offset;
    m_end = offset + count;
}

} // namespace TypeFile
