#pragma once

#include "OVAT/FileBlockManager.h"
#include "OVAT/IBlockManager.h"

#include <memory>
#include <string>
#include <vector>

namespace Bindings {

/// Block storage over a file of which each piece is read once, when it is first needed. What was
/// read stays as it was, whatever becomes of the file; one that has shrunk gives an exception.
class FileSnapshot : public OVAT::IBlockManager {
public:
    /// Throws std::system_error, with the path in its message, if the file cannot be opened or has
    /// no size.
    explicit FileSnapshot(const std::string& path);

    /// Throws std::out_of_range for bytes outside the file, std::system_error if it cannot be read.
    bool read(unsigned long long offset, void* buffer, long long count) override;

    unsigned long long size() const { return m_file.size(); }

private:
    static constexpr unsigned long long PIECE = 1ULL << 20;

    const char* piece(unsigned long long number);

    OVAT::FileBlockManager m_file;
    std::vector<std::unique_ptr<char[]>> m_pieces; ///< Null for those that nobody needed yet.
};

} // namespace Bindings
