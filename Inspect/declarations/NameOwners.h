#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Inspect {

/// Who owns which name, by the hash of the name: the first who asks for it. A hash table in one
/// block, in which a name takes 32 to 64 bytes.
class NameOwners {
public:
    /// Who owns a name, by a number of its own.
    using Owner = std::uint64_t;

    /// The owner of names that are free.
    static constexpr Owner NOBODY = 0;

    /// Makes room for so many names at once.
    void reserve(std::size_t count) {
        while (m_slots.size() <= 2 * count)
            grow();
    }

    /// The owner of a name, or NOBODY.
    Owner of(std::uint64_t hash) const {
        return m_slots.empty() ? NOBODY : m_slots[placeOf(hash)].owner;
    }

    /// The owner of a name, which is `owner` if it was free.
    Owner claim(std::uint64_t hash, Owner owner) {
        reserve(m_count);
        Slot& slot = m_slots[placeOf(hash)];
        if (slot.owner == NOBODY) {
            slot = {hash, owner};
            ++m_count;
        }
        return slot.owner;
    }

private:
    struct Slot {
        std::uint64_t hash;
        Owner owner;
    };

    /// The slot that has the hash, or the free one where it would be.
    std::size_t placeOf(std::uint64_t hash) const {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t place = static_cast<std::size_t>(hash) & mask;
        while (m_slots[place].owner != NOBODY && m_slots[place].hash != hash)
            place = (place + 1) & mask;
        return place;
    }

    void grow() {
        constexpr std::size_t LEAST = 64;
        std::vector<Slot> old(m_slots.empty() ? LEAST : 2 * m_slots.size());
        old.swap(m_slots);
        for (const Slot& slot : old) {
            if (slot.owner != NOBODY)
                m_slots[placeOf(slot.hash)] = slot;
        }
    }

    std::vector<Slot> m_slots; ///< A power of two, less than half of them used.
    std::size_t m_count = 0;   ///< Of names.
};

} // namespace Inspect
