#include "Inspect/json/JsonWindow.h"

#include <algorithm>
#include <cstring>

namespace Inspect {

void TextPlace::advance(std::string_view text) {
    const std::size_t last = text.rfind('\n');
    if (last == std::string_view::npos) {
        column += text.size();
        return;
    }
    line += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    column = text.size() - last - 1;
}

JsonWindow::JsonWindow(std::istream& in)
    : m_in(*in.rdbuf()), m_text(new char[SIZE]), m_counted(m_text.get()) {
    setg(m_text.get(), m_text.get(), m_text.get());
}

std::string_view JsonWindow::ahead() {
    if (left() < AHEAD && !m_isAtEnd)
        fill();
    return {gptr(), left()};
}

void JsonWindow::pass(std::size_t size) {
    count();
    m_place.advance({gptr(), size});
    gbump(static_cast<int>(size));
    m_counted = gptr();
    m_countsAtPass = m_counts;
    m_placeAtPass = m_place;
}

TextPlace JsonWindow::placeOf(TextPlace place) const {
    if (place.line == m_countsAtPass.line)
        place.column += m_placeAtPass.column - m_countsAtPass.column;
    place.line += m_placeAtPass.line - m_countsAtPass.line;
    return place;
}

JsonWindow::int_type JsonWindow::underflow() {
    if (!m_isAtEnd)
        fill();
    return left() == 0 ? traits_type::eof() : traits_type::to_int_type(*gptr());
}

void JsonWindow::fill() {
    count();
    const std::size_t kept = left();
    std::memmove(m_text.get(), gptr(), kept);
    const auto wanted = static_cast<std::streamsize>(SIZE - kept);
    const std::streamsize got = m_in.sgetn(m_text.get() + kept, wanted);
    m_isAtEnd = got < wanted;
    setg(m_text.get(), m_text.get(), m_text.get() + kept + got);
    m_counted = gptr();
}

void JsonWindow::count() {
    const std::string_view taken(m_counted, static_cast<std::size_t>(gptr() - m_counted));
    m_counts.advance(taken);
    m_place.advance(taken);
    m_counted = gptr();
}

} // namespace Inspect
