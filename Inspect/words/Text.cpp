#include "Inspect/words/Text.h"

#include "Inspect/words/IndentedLines.h"

#include <algorithm>

namespace Inspect {

void Text::flush() {
    if (m_out == nullptr || m_size == 0)
        return;
    const std::size_t ready = m_lines != nullptr ? m_lines->settle() : m_size;
    m_out->write(m_bytes.get(), static_cast<std::streamsize>(ready));
    std::copy(m_bytes.get() + ready, m_bytes.get() + m_size, m_bytes.get());
    m_size -= ready;
    if (m_lines != nullptr)
        m_lines->m_begin -= ready;
}

void Text::makeRoom(std::size_t size) {
    if (m_size + size > MOST_HELD)
        flush();
    if (m_capacity - m_size < size)
        grow(size);
}

void Text::grow(std::size_t size) {
    constexpr std::size_t LEAST = 1024;
    const std::size_t capacity = std::max({LEAST, 2 * m_capacity, m_size + size});
    std::unique_ptr<char[]> bytes(new char[capacity]);
    std::copy_n(m_bytes.get(), m_size, bytes.get());
    m_bytes = std::move(bytes);
    m_capacity = capacity;
}

} // namespace Inspect
