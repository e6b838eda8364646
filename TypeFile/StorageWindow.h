#pragma once

#include "OVAT/IBlockManager.h"
#include "RTTI/LittleEndian.h"
#include "TypeFile/RecordFrame.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace TypeFile {

/// The part of a storage that was read last, so that neighbouring fields take one read together.
class StorageWindow {
public:
    StorageWindow(OVAT::IBlockManager& storage, unsigned long long storageSize,
                  std::size_t blockSize);

    /// The bytes from `offset` on, at least `count` of them, which must lie inside the storage;
    /// `count` is at most the block size. Stays valid until the next call. READABLE_BEHIND bytes
    /// more can be looked at, whatever they are.
    const char* at(unsigned long long offset, std::size_t count) {
        if (offset < m_begin || offset + count > m_end)
            move(offset);
        return m_block.get() + (offset - m_begin);
    }

    /// End of the bytes that the last call of `at` can reach.
    unsigned long long end() const { return m_end; }
    unsigned long long storageSize() const { return m_storageSize; }
    std::size_t blockSize() const { return m_blockSize; }

    /// Bytes behind those that were asked for.
    static constexpr std::size_t READABLE_BEHIND = 32;

private:
    void move(unsigned long long offset);

    OVAT::IBlockManager& m_storage;
    unsigned long long m_storageSize;
    std::size_t m_blockSize;
    std::unique_ptr<char[]> m_block;
    unsigned long long m_begin = 0;
    unsigned long long m_end = 0;
};

/// The size and kind of the record at an address, which may be any number.
inline RecordFrame recordFrameAt(StorageWindow& window, unsigned long long address) {
    using namespace RTTI::TypeFileFormat;
    RecordFrame frame;
    frame.address = address;
    frame.room = window.storageSize() - std::min(address, window.storageSize());
    if (frame.room < RECORD_SIZE_SIZE)
        return frame;
    const auto count = std::min<unsigned long long>(frame.room, RECORD_HEADER_SIZE);
    const char* const head = window.at(address, static_cast<std::size_t>(count));
    frame.claimedSize = RTTI::littleEndianAt<int>(head);
    if (count == RECORD_HEADER_SIZE)
        frame.kind = RTTI::littleEndianAt<unsigned int>(head + RECORD_KIND_OFFSET);
    return frame;
}

} // namespace TypeFile
