#include "Inspect/words/IndentedLines.h"

#include <algorithm>
#include <cstring>

namespace Inspect {

// Here, so that a text needs no more of its lines than their name.
void Text::flush() {
    if (m_out == nullptr || m_size == 0)
        return;
    const std::size_t ready = m_lines != nullptr ? m_lines->prefixLines() : m_size;
    m_out->write(m_bytes.get(), static_cast<std::streamsize>(ready));
    std::copy(m_bytes.get() + ready, m_bytes.get() + m_size, m_bytes.get());
    m_size -= ready;
    if (m_lines != nullptr)
        m_lines->m_begin -= ready;
}

IndentedLines::IndentedLines(Text& text, std::string_view prefix, Single single)
    : m_text(text), m_prefix(prefix), m_mayBeSingle(single == Single::BEHIND_LABEL) {
    if (m_mayBeSingle)
        m_text << ' ';
    m_begin = m_text.m_size;
    m_text.m_lines = this;
}

std::size_t IndentedLines::prefixLines() {
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

/// Moves the lines to where they are with all prefixes, the last one first.
void IndentedLines::indent() {
    const std::string_view lines = m_text.view().substr(m_begin);
    std::size_t prefixes = m_isLineStart ? 1 : 0;
    for (std::size_t at = lines.find('\n'); at < lines.size() - 1; at = lines.find('\n', at + 1))
        ++prefixes;
    const std::size_t added = prefixes * m_prefix.size();
    if (m_text.m_capacity < m_text.m_size + added)
        m_text.grow(added);
    char* const begin = m_text.m_bytes.get() + m_begin;
    char* end = m_text.m_bytes.get() + m_text.m_size;
    const bool isNextLineStart = end[-1] == '\n';
    for (char* to = end + added; to != end;) {
        const auto before = static_cast<std::size_t>(end - 1 - begin);
        char* const lineBreak = static_cast<char*>(memrchr(begin, '\n', before));
        char* const line = lineBreak != nullptr ? lineBreak + 1 : begin;
        to = std::copy_backward(line, end, to);
        to = std::copy_backward(m_prefix.begin(), m_prefix.end(), to);
        end = line;
    }
    m_isLineStart = isNextLineStart;
    m_text.m_size += added;
    m_begin = m_text.m_size;
}

} // namespace Inspect
