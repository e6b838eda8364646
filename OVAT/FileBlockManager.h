#pragma once

#include "OVAT/IBlockManager.h"

#include <string>

namespace OVAT {

/// Block storage over a file, opened for reading and closed with the object.
///
/// The file's size is that of its opening. A mapped file must not shrink while it is open: the
/// operating system ends a program that touches mapped bytes which are no more. Positioned reads
/// throw instead.
class FileBlockManager : public IBlockManager {
public:
    /// How the bytes are reached: a mapped read is a copy, a positioned one a system call.
    enum class Access {
        MAP_WHERE_POSSIBLE, ///< Positioned reads only where the file cannot be mapped.
        POSITIONED_READS    ///< For files that may shrink.
    };

    /// Throws std::system_error, with the path in its text, for what cannot be opened or has no
    /// size, such as a directory or a pipe.
    explicit FileBlockManager(const std::string& path, Access access = Access::MAP_WHERE_POSSIBLE);
    FileBlockManager(const FileBlockManager&) = delete;
    FileBlockManager& operator=(const FileBlockManager&) = delete;
    ~FileBlockManager() override;

    /// Always true. Throws std::out_of_range where the bytes do not all lie in the file, and
    /// std::system_error where the file cannot be read.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    /// Bytes of the file when it was opened.
    unsigned long long size() const { return m_size; }

    /// Whether reads are copies out of mapped memory.
    bool isMapped() const { return m_mapped != nullptr; }

private:
    /// Closes the file when the constructor throws, too.
    struct Descriptor {
        int number;
        ~Descriptor();
    };

    std::string m_path;
    Descriptor m_file;
    unsigned long long m_size = 0;
    void* m_mapped = nullptr;
};

} // namespace OVAT
