#include "FileSnapshot.h"

#include "OVAT/BlockRange.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>

#include <sys/mman.h>

namespace Bindings {

FileSnapshot::FileSnapshot(const std::string& path)
    : m_file(path, OVAT::FileBlockManager::Access::POSITIONED_READS),
      m_isRead((size() + PIECE - 1) / PIECE) {
    if (size() == 0)
        return;
    void* bytes = MAP_FAILED;
    errno = ENOMEM;
    if (size() <= std::numeric_limits<std::size_t>::max())
        bytes = ::mmap(nullptr, static_cast<std::size_t>(size()), PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (bytes == MAP_FAILED)
        throw std::system_error(errno, std::generic_category(), path);
    m_bytes = static_cast<char*>(bytes);
    ::madvise(bytes, static_cast<std::size_t>(size()), MADV_HUGEPAGE); // Only a matter of time.
}

FileSnapshot::~FileSnapshot() {
    if (m_bytes != nullptr)
        ::munmap(m_bytes, static_cast<std::size_t>(size()));
}

bool FileSnapshot::read(unsigned long long offset, void* buffer, long long count) {
    OVAT::checkBlockRange(offset, count, size());
    const unsigned long long end = offset + static_cast<unsigned long long>(count);
    for (unsigned long long piece = offset / PIECE; piece * PIECE < end; ++piece) {
        if (m_isRead[piece])
            continue;
        const unsigned long long begin = piece * PIECE;
        m_file.read(begin, m_bytes + begin, static_cast<long long>(std::min(PIECE, size() - begin)));
        m_isRead[piece] = true;
    }
    std::copy_n(m_bytes + offset, count, static_cast<char*>(buffer));
    return true;
}

} // namespace Bindings
