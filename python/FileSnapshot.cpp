#include "FileSnapshot.h"

#include "OVAT/BlockRange.h"

#include <algorithm>

namespace Bindings {

FileSnapshot::FileSnapshot(const std::string& path)
    : m_file(path, OVAT::FileBlockManager::Access::POSITIONED_READS),
      m_pieces((m_file.size() + PIECE - 1) / PIECE) {}

bool FileSnapshot::read(unsigned long long offset, void* buffer, long long count) {
    OVAT::checkBlockRange(offset, count, m_file.size());
    auto* to = static_cast<char*>(buffer);
    auto left = static_cast<unsigned long long>(count);
    while (left != 0) {
        const unsigned long long begin = offset % PIECE;
        const unsigned long long here = std::min(left, PIECE - begin);
        to = std::copy_n(piece(offset / PIECE) + begin, here, to);
        offset += here;
        left -= here;
    }
    return true;
}

const char* FileSnapshot::piece(unsigned long long number) {
    if (m_pieces[number] == nullptr) {
        const unsigned long long size = std::min(PIECE, m_file.size() - number * PIECE);
        std::unique_ptr<char[]> bytes(new char[size]);
        m_file.read(number * PIECE, bytes.get(), static_cast<long long>(size));
        m_pieces[number] = std::move(bytes);
    }
    return m_pieces[number].get();
}

} // namespace Bindings
