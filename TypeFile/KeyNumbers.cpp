#include "TypeFile/KeyNumbers.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace TypeFile {

KeyNumbers::KeyNumbers(std::size_t expected)
    : m_slots(std::bit_ceil(2 * std::max<std::size_t>(expected, 8))) {}

unsigned int KeyNumbers::of(std::string_view key) {
    const bool isNext = m_next < count() && keyOf(m_next) == key;
    const unsigned int number = isNext ? m_next : search(key);
    m_next = number + 1;
    return number;
}

unsigned int KeyNumbers::search(std::string_view key) {
    const unsigned long long wide = std::hash<std::string_view>()(key);
    const auto hash = static_cast<unsigned int>(wide ^ wide >> 32);
    std::size_t i = hash & (m_slots.size() - 1);
    for (; m_slots[i].number != FREE; i = (i + 1) & (m_slots.size() - 1)) {
        if (m_slots[i].hash == hash && keyOf(m_slots[i].number) == key)
            return m_slots[i].number;
    }
    const unsigned int number = count();
    m_slots[i] = {hash, number};
    m_keys += key;
    m_begins.push_back(m_keys.size());
    if (2 * m_begins.size() > m_slots.size())
        grow();
    return number;
}

void KeyNumbers::grow() {
    const std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(2 * m_slots.size()));
    for (const Slot& slot : old) {
        if (slot.number == FREE)
            continue;
        std::size_t i = slot.hash & (m_slots.size() - 1);
        while (m_slots[i].number != FREE)
            i = (i + 1) & (m_slots.size() - 1);
        m_slots[i] = slot;
    }
}

} // namespace TypeFile
