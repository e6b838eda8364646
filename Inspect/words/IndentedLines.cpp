#include "Inspect/words/IndentedLines.h"

#include <algorithm>

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

/// Moves the lines to where the last one ends with all prefixes, and back line by line.
void IndentedLines::indent() {
    const std::string_view lines = m_text.view().substr(m_begin);
    const auto breaks = std::count(lines.begin(), lines.end() - 1, '\n');
    const std::size_t prefixes = static_cast<std::size_t>(breaks) + (m_isLineStart ? 1 : 0);
    const std::size_t added = prefixes * m_prefix.size();
    if (m_text.m_capacity < m_text.m_size + added)
        m_text.grow(added);
    char* to = m_text.m_bytes.get() + m_begin;
    std::string_view rest(to + added, lines.size());
    std::copy_backward(to, to + rest.size(), to + added + rest.size());
    while (!rest.empty()) {
        if (m_isLineStart)
            to = std::copy(m_prefix.begin(), m_prefix.end(), to);
        const std::size_t end = rest.find('\n');
        m_isLineStart = end != std::string_view::npos;
        const std::string_view line = m_isLineStart ? rest.substr(0, end + 1) : rest;
        to = std::copy(line.begin(), line.end(), to);
        rest.remove_prefix(line.size());
    }
    m_text.m_size += added;
    m_begin = m_text.m_size;
}

} // namespace Inspect
