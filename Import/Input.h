#pragma once

#include "Import/Place.h"

#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Import {

/// A stream that is read once, from its beginning to its end, with a look ahead. Holds a piece of
/// it, however long it is. The stream has to outlive the input.
class Input {
public:
    /// Takes how many bytes have been read so far.
    using TakeProgress = std::function<void(unsigned long long bytes)>;

    /// No line of a text may be longer.
    static constexpr std::size_t LONGEST_LINE = std::size_t{1} << 26;

    /// `name` is what messages call it.
    Input(std::istream& stream, const std::string& name, TakeProgress progress = nullptr);

    /// What messages call it.
    const std::string& name() const { return *m_name; }

    /// The next bytes, `count` of them or what is left, which are still to be read. Valid until the
    /// next call.
    std::string_view peek(std::size_t count);

    /// Reads up to `count` bytes and says how many there were: fewer at the end alone.
    std::size_t read(char* to, std::size_t count);

    /// Passes over up to `count` bytes and says how many there were.
    unsigned long long skip(unsigned long long count);

    /// Reads a line, without what ends it (LF or CR LF); false at the end. The last line needs no
    /// end. Valid until the next call. Throws ImportError for a line that is too long.
    bool readLine(std::string_view& line);

    /// Bytes read so far.
    unsigned long long offset() const { return m_offset; }

    /// Whether the line that was read last was ended by a line feed, and not by the input's end.
    bool endedLine() const { return m_endedLine; }

    /// The place of the line that was read last, or of another one.
    /// @{
    Place linePlace() const { return Place::line(m_name, m_lines); }
    Place linePlace(unsigned long long number) const { return Place::line(m_name, number); }
    /// @}

    /// The number of the line that was read last, counted from 1.
    unsigned long long line() const { return m_lines; }

    /// The place of the next byte, or of another one.
    /// @{
    Place offsetPlace() const { return Place::offset(m_name, m_offset); }
    Place offsetPlace(unsigned long long offset) const { return Place::offset(m_name, offset); }
    /// @}

    /// The place that is the input as a whole.
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
