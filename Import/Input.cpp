#include "Import/Input.h"

#include "Import/ImportError.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

namespace Import {

Input::Input(std::istream& stream, const std::string& name, TakeProgress progress)
    : m_stream(stream), m_name(std::make_shared<const std::string>(name)),
      m_progress(std::move(progress)), m_buffer(PIECE) {}

/// Adds bytes to those in the buffer; false at the end.
bool Input::fill() {
    if (m_begin > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= std::exchange(m_begin, 0);
    }
    if (m_end == m_buffer.size())
        m_buffer.resize(2 * m_buffer.size());
    m_stream.read(m_buffer.data() + m_end, static_cast<std::streamsize>(m_buffer.size() - m_end));
    if (m_stream.bad())
        throw std::system_error(EIO, std::generic_category(), *m_name);
    const auto count = static_cast<std::size_t>(m_stream.gcount());
    m_end += count;
    if (m_progress)
        m_progress(m_offset + (m_end - m_begin));
    return count > 0;
}

void Input::advance(std::size_t count) {
    m_begin += count;
    m_offset += count;
}

std::string_view Input::peek(std::size_t count) {
    while (m_end - m_begin < count && fill()) {
    }
    return {m_buffer.data() + m_begin, std::min(count, m_end - m_begin)};
}

std::size_t Input::read(char* to, std::size_t count) {
    std::size_t done = 0;
    while (done < count && (m_begin < m_end || fill())) {
        const std::size_t piece = std::min(count - done, m_end - m_begin);
        std::memcpy(to + done, m_buffer.data() + m_begin, piece);
        advance(piece);
        done += piece;
    }
    return done;
}

unsigned long long Input::skip(unsigned long long count) {
    unsigned long long done = 0;
    while (done < count && (m_begin < m_end || fill())) {
        const auto piece =
            static_cast<std::size_t>(std::min<unsigned long long>(count - done, m_end - m_begin));
        advance(piece);
        done += piece;
    }
    return done;
}

bool Input::readLine(std::string_view& line) {
    std::size_t searched = 0;
    const void* found = nullptr;
    while (true) {
        const char* const begin = m_buffer.data() + m_begin;
        const std::size_t count = m_end - m_begin;
        found = std::memchr(begin + searched, '\n', count - searched);
        if (found != nullptr)
            break;
        searched = count;
        if (count > LONGEST_LINE)
            throw ImportError(Place::line(m_name, m_lines + 1),
                              "the line has more than " + std::to_string(LONGEST_LINE) + " bytes");
        if (!fill())
            break;
    }
    const char* const begin = m_buffer.data() + m_begin;
    m_endedLine = found != nullptr;
    const std::size_t length =
        m_endedLine ? static_cast<std::size_t>(static_cast<const char*>(found) - begin)
                    : m_end - m_begin;
    if (!m_endedLine && length == 0)
        return false;
    line = {begin, length};
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    advance(length + (m_endedLine ? 1 : 0));
    ++m_lines;
    return true;
}

} // namespace Import
