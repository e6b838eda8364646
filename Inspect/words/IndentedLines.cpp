#include "Inspect/words/IndentedLines.h"

#include <string_view>

namespace Inspect {

std::streambuf::int_type IndentedLines::overflow(int_type byte) {
    const char text = traits_type::to_char_type(byte);
    xsputn(&text, 1);
    return traits_type::not_eof(byte);
}

std::streamsize IndentedLines::xsputn(const char* text, std::streamsize size) {
    std::string_view rest(text, static_cast<std::size_t>(size));
    while (!rest.empty()) {
        if (m_isLineStart)
            m_out << m_prefix;
        const std::size_t end = rest.find('\n');
        m_isLineStart = end != std::string_view::npos;
        const std::string_view line = rest.substr(0, m_isLineStart ? end + 1 : rest.size());
        m_out << line;
        rest.remove_prefix(line.size());
    }
    return size;
}

} // namespace Inspect
