#include "Inspect/words/IndentedLines.h"

#include <algorithm>
#include <string_view>

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

/// Takes the lines out of the text and puts each back behind its prefix.
void IndentedLines::indent() {
    const auto append = [this](std::string_view part) {
        if (m_text.m_capacity - m_text.m_size < part.size())
            m_text.grow(part.size());
        part.copy(m_text.m_bytes.get() + m_text.m_size, part.size());
        m_text.m_size += part.size();
    };
    m_text.m_aside.assign(m_text.view().substr(m_begin));
    m_text.m_size = m_begin;
    for (std::string_view left = m_text.m_aside; !left.empty();) {
        const std::string_view line =
            left.substr(0, std::min(left.find('\n'), left.size() - 1) + 1);
        if (m_isLineStart)
            append(m_prefix);
        append(line);
        m_isLineStart = line.back() == '\n';
        left.remove_prefix(line.size());
    }
    m_begin = m_text.m_size;
}

} // namespace Inspect
