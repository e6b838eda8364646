#pragma once

#include "OVAT/WholeFile.h"

#include <memory>
#include <ostream>
#include <streambuf>
#include <string>

/// Where a subcommand writes to: a file that appears whole or not at all, or standard output.
class OutputFile {
public:
    /// "-" is standard output. Throws what OVAT::WholeFile throws.
    explicit OutputFile(const std::string& path);
    ~OutputFile();

    std::ostream& stream() { return m_stream; }

    /// Gives the file its name. Called once, last. Without it there is no file.
    void commit();

private:
    class Buffer;

    std::unique_ptr<Buffer> m_buffer; ///< Null for standard output.
    std::ostream m_stream;
};
