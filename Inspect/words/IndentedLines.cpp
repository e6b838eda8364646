#include "Inspect/words/IndentedLines.h"

#include <algorithm>

namespace Inspect {

IndentedLines::IndentedLines(Text& text, std::string_view prefix, Single single)
    : m_text(text), m_prefix(prefix), m_mayBeSingle(single == Single::BEHIND_LABEL) {
    if (m_mayBeSingle)
        m_text << ' ';
    m_begin = m_text.m_size;
    m_text.m_lines = this;
}

std::size_t IndentedLines::settle() {
    const std::string_view lines = m_text.view().substr(m_begin);
    if (m_mayBeSingle) {
        const std::size_t end = lines.find('\n');
        if (end == std::string_view::npos || end + 1 == lines.size())
            return m_begin - 1;
        m_text.m_bytes[m_begin - 1] = '\n';
        m_mayBeSingle = false;
    }
    if (!lines.empty())
        indent();
    return m_begin;
}

/// Moves the lines apart, the last one first, so that each prefix has its place.
void IndentedLines::indent() {
    const std::string_view written = m_text.view().substr(m_begin);
    const bool endsLine = written.back() == '\n';
    const auto breaks = std::count(written.begin(), written.end(), '\n') - (endsLine ? 1 : 0);
    const std::size_t prefixes = static_cast<std::size_t>(breaks) + (m_isLineStart ? 1 : 0);
    std::size_t from = m_text.m_size;
    std::size_t to = from + prefixes * m_prefix.size();
    if (m_text.m_capacity < to)
        m_text.grow(to - from);
    char* const bytes = m_text.m_bytes.get();
    const std::string_view lines(bytes + m_begin, written.size());
    m_text.m_size = to;
    while (from != to) {
        const std::size_t size = from - m_begin;
        const std::size_t before = size < 2 ? lines.npos : lines.rfind('\n', size - 2);
        const std::size_t begin = before == lines.npos ? m_begin : m_begin + before + 1;
        std::copy_backward(bytes + begin, bytes + from, bytes + to);
        to -= from - begin + m_prefix.size();
        m_prefix.copy(bytes + to, m_prefix.size());
        from = begin;
    }
    m_isLineStart = endsLine;
    m_begin = m_text.m_size;
}

} // namespace Inspect
