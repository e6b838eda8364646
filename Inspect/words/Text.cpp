#include "Inspect/words/Text.h"

#include <algorithm>

namespace Inspect {

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
