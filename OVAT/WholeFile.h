#pragma once

#include <string>

namespace OVAT {

/// A file that appears complete or not at all.
///
/// The bytes go to a temporary file in the same directory; `commit` renames it, and so replaces any
/// older file of that name. Without `commit` nothing is left behind and an older file stays as it
/// was. Every function throws std::system_error, with the path in its message, if the operating
/// system reports an error.
class WholeFile {
public:
    /// Creates the temporary file. Symbolic links in `path` are followed. A path to anything other
    /// than a regular file, such as a directory or a pipe, is refused.
    explicit WholeFile(const std::string& path);
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;
    ~WholeFile();

    /// Writes `count` bytes at `offset`. Bytes before `offset` that are never written are zero.
    void write(unsigned long long offset, const void* bytes, unsigned long long count);

    /// Pads the file with zeros up to `size` bytes if it is shorter.
    void extend(unsigned long long size);

    /// The path of the bytes until `commit`, for example to read them back.
    const std::string& temporaryPath() const { return m_temporaryPath; }

    /// Flushes the bytes to the disk and gives the file its name. Must be the last call, made once.
    void commit();

private:
    /// Closes the temporary file, and removes it unless it has been renamed.
    void discard() noexcept;

    std::string m_path;
    std::string m_directory;
    std::string m_temporaryPath;
    int m_descriptor = -1;
};

} // namespace OVAT
