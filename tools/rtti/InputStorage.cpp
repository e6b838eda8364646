#include "InputStorage.h"

#include "OVAT/FileBlockManager.h"
#include "OVAT/MemoryBlockManager.h"
#include "UnusableFile.h"

#include <cerrno>
#include <system_error>
#include <vector>

#include <unistd.h>

namespace {

std::vector<char> bytesOfStandardInput() {
    constexpr std::size_t PIECE = 1 << 16;
    std::vector<char> bytes;
    for (std::size_t size = 0;;) {
        bytes.resize(size + PIECE);
        const ssize_t count = ::read(STDIN_FILENO, bytes.data() + size, PIECE);
        if (count < 0 && errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "standard input");
        if (count > 0)
            size += static_cast<std::size_t>(count);
        bytes.resize(size);
        if (count == 0)
            return bytes;
    }
}

} // namespace

InputStorage::InputStorage(const std::string& path)
    : m_path(path == STANDARD_STREAM ? "standard input" : path) {
    if (path == STANDARD_STREAM)
        hold(std::make_unique<OVAT::OwningMemoryBlockManager>(bytesOfStandardInput()));
    else
        hold(std::make_unique<OVAT::FileBlockManager>(path));
}

InputStorage::~InputStorage() = default;

bool InputStorage::read(unsigned long long offset, void* buffer, long long count) {
    try {
        return m_storage->read(offset, buffer, count);
    } catch (const std::out_of_range& error) {
        throw UnusableFile(m_path, std::string("too short: ") + error.what());
    }
}
