#include "OVAT/FileBlockManager.h"

#include "OVAT/BlockRange.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace OVAT {

namespace {

static_assert(sizeof(off_t) == 8, "_FILE_OFFSET_BITS has to be 64 where a long has 32");

[[noreturn]] void fail(const std::string& path, int error) {
    throw std::system_error(error, std::generic_category(), path);
}

/// The address space, which a file need not fit into where it has 32 bits.
constexpr unsigned long long MOST_MAPPED = std::numeric_limits<std::size_t>::max();

int openForReading(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        fail(path, errno);
    return file;
}

/// Works for block devices, too, whose status gives no size.
unsigned long long sizeOf(int file, const std::string& path) {
    struct stat status {};
    if (::fstat(file, &status) != 0)
        fail(path, errno);
    if (S_ISDIR(status.st_mode))
        fail(path, EISDIR);
    const off_t end = ::lseek(file, 0, SEEK_END);
    if (end < 0)
        fail(path, errno);
    return static_cast<unsigned long long>(end);
}

} // namespace

FileBlockManager::Descriptor::~Descriptor() { ::close(number); }

FileBlockManager::FileBlockManager(const std::string& path, Access access)
    : m_path(path), m_file{openForReading(path)}, m_size(sizeOf(m_file.number, path)) {
    if (access == Access::POSITIONED_READS || m_size == 0 || m_size > MOST_MAPPED)
        return;
    void* mapped =
        ::mmap(nullptr, static_cast<std::size_t>(m_size), PROT_READ, MAP_PRIVATE, m_file.number, 0);
    if (mapped != MAP_FAILED)
        m_mapped = mapped;
}

FileBlockManager::~FileBlockManager() {
    if (m_mapped != nullptr)
        ::munmap(m_mapped, static_cast<std::size_t>(m_size));
}

bool FileBlockManager::read(unsigned long long offset, void* buffer, long long count) {
    checkBlockRange(offset, count, m_size);
    char* to = static_cast<char*>(buffer);
    if (m_mapped != nullptr) {
        std::copy_n(static_cast<const char*>(m_mapped) + offset, count, to);
        return true;
    }
    for (long long done = 0; done < count;) {
        const ssize_t got =
            ::pread(m_file.number, to + done, static_cast<std::size_t>(count - done),
                    static_cast<off_t>(offset) + done);
        if (got < 0 && errno != EINTR)
            fail(m_path, errno);
        if (got == 0) // The file has become shorter since it was opened.
            checkBlockRange(offset, count, offset + static_cast<unsigned long long>(done));
        done += std::max<ssize_t>(got, 0);
    }
    return true;
}

} // namespace OVAT
