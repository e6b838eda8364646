#pragma once

#include <string>

namespace OVAT {

/// A file that appears whole or not at all.
///
/// The bytes go to a temporary file in the directory of the file to be; `commit` gives it the
/// name, in place of a file that had it. Without `commit` nothing is left behind and an older file
/// stays as it was. Every operation throws std::system_error, with the path in its text, where the
/// operating system refuses.
class WholeFile {
public:
    /// Symbolic links are followed. A path that names something else than a regular file, such as
    /// a directory or a pipe, is refused.
    explicit WholeFile(const std::string& path);
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;
    ~WholeFile();

    /// Bytes in front of `offset` that nobody writes are zero.
    void write(unsigned long long offset, const void* bytes, unsigned long long count);

    /// Fills the file up to `size` with zeros where it is shorter.
    void extend(unsigned long long size);

    /// Where the bytes are until `commit`, so that they can be read again.
    const std::string& temporaryPath() const { return m_temporaryPath; }

    /// Brings the bytes to the disk and the file to its name. Called once, last.
    void commit();

private:
    /// Closes the temporary file and, unless it got its name, removes it.
    void discard() noexcept;

    std::string m_path;
    std::string m_directory;
    std::string m_temporaryPath;
    int m_descriptor = -1;
};

} // namespace OVAT
