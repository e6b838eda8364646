#include "OVAT/WholeFile.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace OVAT {

namespace {

static_assert(sizeof(off_t) == 8, "_FILE_OFFSET_BITS has to be 64 where a long has 32");

constexpr int MOST_NAMES_TRIED = 1000;
constexpr mode_t MODE_OF_NEW_FILE = 0666; // Less what the process masks.

[[noreturn]] void fail(const std::string& path, const char* what, int error = errno) {
    throw std::system_error(error, std::generic_category(), path + ": " + what);
}

/// The file that `path` stands for: a file that exists by its own name, else `path`.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
    return real ? real.get() : path;
}

/// Whether there is a file, and its mode. Anything but a regular file is refused.
bool modeOf(const std::string& path, mode_t& mode) {
    struct stat status;
    if (::stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT)
            return false;
        fail(path, "cannot be written");
    }
    if (!S_ISREG(status.st_mode))
        fail(path, "is not a regular file", EINVAL);
    mode = status.st_mode & 07777;
    return true;
}

std::string directoryOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash == 0 ? 1 : slash);
}

/// A rename lasts once its directory is on the disk; a directory that cannot be synced is let be.
void syncDirectory(const std::string& path) noexcept {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

WholeFile::WholeFile(const std::string& path)
    : m_path(resolved(path)), m_directory(directoryOf(m_path)) {
    mode_t mode = 0;
    const bool replaces = modeOf(m_path, mode);
    const std::string stem = m_path + ".new" + std::to_string(::getpid()) + '-';
    for (int i = 0; i < MOST_NAMES_TRIED && m_descriptor < 0; ++i) {
        m_temporaryPath = stem + std::to_string(i);
        m_descriptor = ::open(m_temporaryPath.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC,
                              MODE_OF_NEW_FILE);
        if (m_descriptor < 0 && errno != EEXIST)
            fail(path, "cannot be written");
    }
    if (m_descriptor < 0)
        fail(path, "has temporary files beside it", EEXIST);
    if (replaces && ::fchmod(m_descriptor, mode) != 0) {
        const int error = errno;
        discard();
        fail(path, "cannot keep its mode", error);
    }
}

WholeFile::~WholeFile() { discard(); }

void WholeFile::discard() noexcept {
    if (m_descriptor < 0)
        return;
    ::close(std::exchange(m_descriptor, -1));
    ::unlink(m_temporaryPath.c_str());
}

void WholeFile::write(unsigned long long offset, const void* bytes, unsigned long long count) {
    constexpr unsigned long long LAST = LLONG_MAX;
    if (offset > LAST || count > LAST - offset)
        fail(m_path, "would be larger than a file can be", EFBIG);
    const char* next = static_cast<const char*>(bytes);
    while (count != 0) {
        const ssize_t written = ::pwrite(m_descriptor, next, count, static_cast<off_t>(offset));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            fail(m_path, "could not be written", written == 0 ? EIO : errno);
        next += written;
        offset += static_cast<unsigned long long>(written);
        count -= static_cast<unsigned long long>(written);
    }
}

void WholeFile::extend(unsigned long long size) {
    struct stat status;
    if (::fstat(m_descriptor, &status) != 0)
        fail(m_path, "could not be written");
    if (size > LLONG_MAX)
        fail(m_path, "would be larger than a file can be", EFBIG);
    if (static_cast<unsigned long long>(status.st_size) < size &&
        ::ftruncate(m_descriptor, static_cast<off_t>(size)) != 0)
        fail(m_path, "could not be written");
}

void WholeFile::commit() {
    if (::fsync(m_descriptor) != 0)
        fail(m_path, "could not be written");
    if (::rename(m_temporaryPath.c_str(), m_path.c_str()) != 0)
        fail(m_path, "could not be put in place");
    // From here on nothing fails: the file is there.
    ::close(std::exchange(m_descriptor, -1));
    syncDirectory(m_directory);
}

} // namespace OVAT
