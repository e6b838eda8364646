#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <utility>

namespace Inspect {

/// Where a stream writes to whose lines go to another one, each behind a prefix. The other stream
/// must outlive it, and alone keeps the record of failures; nothing is held back. What the other
/// one throws passes through a stream that has `exceptions(badbit)`.
class IndentedLines : public std::streambuf {
public:
    IndentedLines(std::ostream& out, std::string prefix)
        : m_out(out), m_prefix(std::move(prefix)) {}

private:
    int_type overflow(int_type byte) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;

    std::ostream& m_out;
    std::string m_prefix;
    bool m_isLineStart = true;
};

} // namespace Inspect
