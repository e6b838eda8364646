#pragma once

#include "OVAT/FileBlockManager.h"
#include "OVAT/IBlockManager.h"

#include <string>
#include <vector>

namespace Bindings {

/// Block storage over a file of which each piece is read once, when it is first needed. What was
/// read stays as it was, whatever becomes of the file; one that has shrunk gives an exception.
class FileSnapshot : public OVAT::IBlockManager {
public:
    /// Throws std::system_error, with the path in its message, if the file cannot be opened, has no
    /// size, or does not fit into the address space.
    explicit FileSnapshot(const std::string& path);
    FileSnapshot(const FileSnapshot&) = delete;
    FileSnapshot& operator=(const FileSnapshot&) = delete;
    ~FileSnapshot() override;

    /// Throws std::out_of_range for bytes outside the file, std::system_error if it cannot be read.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    unsigned long long size() const { return m_file.size(); }

private:
    /// As large as the pages that spare most of the time of fresh memory.
    static constexpr unsigned long long PIECE = 2ULL << 20;

    OVAT::FileBlockManager m_file;
    char* m_bytes = nullptr;    ///< As many as the file has; the system gives memory where one is written.
    std::vector<bool> m_isRead; ///< By piece.
};

} // namespace Bindings
