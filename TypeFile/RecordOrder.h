#pragma once

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace TypeFile {

/// Types in the order of their records in the storage; those that share a record by id. Writers
/// mostly give out ids in that order, so that there is nothing to sort.
class RecordOrder {
public:
    RecordOrder() = default;

    /// Refers to the addresses, one a type.
    explicit RecordOrder(const std::vector<unsigned long long>& addresses)
        : m_addresses(&addresses) {
        if (std::is_sorted(addresses.begin(), addresses.end()))
            return;
        m_ids.resize(addresses.size());
        std::iota(m_ids.begin(), m_ids.end(), 0);
        std::stable_sort(m_ids.begin(), m_ids.end(), [&](unsigned int left, unsigned int right) {
            return addresses[left] < addresses[right];
        });
    }

    std::size_t size() const { return m_addresses->size(); }

    unsigned int idAt(std::size_t place) const {
        return m_ids.empty() ? static_cast<unsigned int>(place) : m_ids[place];
    }

    unsigned long long addressAt(std::size_t place) const { return (*m_addresses)[idAt(place)]; }

    /// The first place of a record that begins at `offset` or behind it.
    std::size_t placeFrom(unsigned long long offset) const {
        std::size_t first = 0;
        for (std::size_t count = size(); count != 0;) {
            const std::size_t half = count / 2;
            const bool isBefore = addressAt(first + half) < offset;
            first += isBefore ? half + 1 : 0;
            count = isBefore ? count - half - 1 : half;
        }
        return first;
    }

    /// The place behind all types that share the record at `place`.
    std::size_t placeBehind(std::size_t place) const {
        const unsigned long long address = addressAt(place);
        const std::size_t end = size();
        std::size_t next = place + 1;
        while (next < end && addressAt(next) == address)
            ++next;
        return next;
    }

private:
    const std::vector<unsigned long long>* m_addresses = nullptr;
    std::vector<unsigned int> m_ids; ///< Empty where the ids are in order.
};

} // namespace TypeFile
