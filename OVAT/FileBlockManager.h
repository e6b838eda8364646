#pragma once

#include "OVAT/IBlockManager.h"

#include <string>

namespace OVAT {

/// Block storage over a file. The constructor opens the file for reading, the destructor closes it.
///
/// The size is determined when the file is opened. A mapped file must not shrink while it is open:
/// the operating system kills a program that touches mapped bytes which no longer exist. Positioned
/// reads throw an exception instead.
class FileBlockManager : public IBlockManager {
public:
    /// How the bytes are read: copied from mapped memory, or fetched by a system call.
    enum class Access {
        MAP_WHERE_POSSIBLE, ///< Positioned reads only if the file cannot be mapped.
        POSITIONED_READS    ///< For files that may shrink.
    };

    /// Opens the file at `path`. Throws std::system_error, with the path in its message, if the
    /// file cannot be opened or has no size (a directory or a pipe, for example).
    explicit FileBlockManager(const std::string& path, Access access = Access::MAP_WHERE_POSSIBLE);
    FileBlockManager(const FileBlockManager&) = delete;
    FileBlockManager& operator=(const FileBlockManager&) = delete;
    ~FileBlockManager() override;

    /// Always returns true. Throws std::out_of_range if any of the bytes lie outside the file, and
    /// std::system_error if the file cannot be read.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    /// The size of the file in bytes when it was opened.
    unsigned long long size() const { return m_size; }

    /// Whether reads copy from mapped memory.
    bool isMapped() const { return m_mapped != nullptr; }

private:
    /// Closes the file, also if the constructor throws.
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
