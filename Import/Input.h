#pragma once

#include "Import/Place.h"

#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Import {

/// Reads a stream once, from its beginning to its end, with look-ahead. Keeps only a piece of it in
/// memory, however long it is. The stream must outlive the object.
class Input {
public:
    /// Receives the number of bytes read so far.
    using TakeProgress = std::function<void(unsigned long long bytes)>;

    /// The largest allowed length of a line.
    static constexpr std::size_t LONGEST_LINE = std::size_t{1} << 26;

    /// `name` is the name used in messages.
    Input(std::istream& stream, const std::string& name, TakeProgress progress = nullptr);

    /// The name used in messages.
    const std::string& name() const { return *m_name; }

    /// The next `count` bytes, or all that are left, without reading past them. Valid until the
    /// next call.
    std::string_view peek(std::size_t count);

    /// Reads up to `count` bytes and returns their number, which is smaller only at the end.
    std::size_t read(char* to, std::size_t count);

    /// Skips up to `count` bytes and returns their number.
    unsigned long long skip(unsigned long long count);

    /// Reads a line without its end (LF or CR LF); false at the end of the input. The last line
    /// needs no end. `line` is valid until the next call. Throws ImportError if the line is too
    /// long.
    bool readLine(std::string_view& line);

    /// The number of bytes read so far.
    unsigned long long offset() const { return m_offset; }

    /// Whether a line feed ended the line that was read last, and not the end of the input.
    bool endedLine() const { return m_endedLine; }

    /// The place of the line that was read last, or of the line with the given number.
    /// @{
    Place linePlace() const { return Place::line(m_name, m_lines); }
    Place linePlace(unsigned long long number) const { return Place::line(m_name, number); }
    /// @}

    /// The number of the line that was read last, counted from 1.
    unsigned long long line() const { return m_lines; }

    /// The place of the next byte, or of the byte at the given offset.
    /// @{
    Place offsetPlace() const { return Place::offset(m_name, m_offset); }
    Place offsetPlace(unsigned long long offset) const { return Place::offset(m_name, offset); }
    /// @}

    /// The place of the input as a whole.
    Place place() const { return Place(m_name); }

private:
    static constexpr std::size_t PIECE = std::size_t{1} << 18;

    bool fill();
    void advance(std::size_t count);

    std::istream& m_stream;
    std::shared_ptr<const std::string> m_name;
    TakeProgress m_progress;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0; ///< Of the bytes in the buffer that are still to be read.
    std::size_t m_end = 0;
    unsigned long long m_offset = 0;
    unsigned long long m_lines = 0;
    bool m_endedLine = false;
};

} // namespace Import
