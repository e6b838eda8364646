#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace TypeFile {

/// A reference of a record that must lead to an object, and what its list of ranges has.
struct Part {
    static constexpr unsigned char MOST_RANGES = 8;
    static constexpr unsigned char MANY = MOST_RANGES + 1; ///< A LongList says how many.

    unsigned int target;
    unsigned char link;
    bool isLast;              ///< Of those of a type, where they are kept.
    unsigned char rangeCount; ///< Up to MOST_RANGES, or MANY.
    unsigned char bounded;    ///< Of the ranges, bit by bit: whether it has bounds of its own.

    void setBounded(unsigned int range, bool isBounded) {
        bounded = static_cast<unsigned char>(bounded | (isBounded ? 1U << range : 0));
    }
};
static_assert(sizeof(Part) == 8, "memory counts: a file can have many millions of members");

/// A list of more ranges than a part has room for.
struct LongList {
    std::size_t part; ///< Its place among the parts.
    unsigned int rangeCount;
    unsigned long long rangesAt; ///< In the storage.
};

/// The parts of one type, in the order of its record.
struct PartsOfType {
    std::span<const Part> parts;
    const std::vector<LongList>& longLists; ///< In the order of their places, maybe with others.
    std::size_t firstPlace;                 ///< That of the first part.
    unsigned int dimensions;                ///< Of an array; 0 for other kinds.
};

/// The parts of the record that was read last. Its memory is used again for the next one.
class RecordParts {
public:
    void clear() {
        m_count = 0;
        m_dimensions = 0;
        m_longLists.clear();
    }

    PartsOfType all() const {
        return {std::span(m_parts.data(), m_count), m_longLists, 0, m_dimensions};
    }
    bool isEmpty() const { return m_count == 0; }

    /// Memory for the parts of a record of this size; `setEnd` says later how many there are.
    Part* roomFor(std::size_t recordSize) {
        if (const std::size_t most = recordSize / sizeof(Part::target); m_parts.size() < most)
            m_parts.resize(most);
        return m_parts.data();
    }
    void setEnd(const Part* end) { m_count = static_cast<std::size_t>(end - m_parts.data()); }

    void add(const Part& part) {
        if (m_count == m_parts.size())
            m_parts.resize(2 * m_count + 1);
        m_parts[m_count++] = part;
    }
    Part& last() { return m_parts[m_count - 1]; }
    void addLongList(std::size_t part, unsigned int rangeCount, unsigned long long rangesAt) {
        m_longLists.push_back({part, rangeCount, rangesAt});
    }
    void addDimension() { ++m_dimensions; }
    void setDimensions(unsigned int dimensions) { m_dimensions = dimensions; }

private:
    std::vector<Part> m_parts; ///< More than there are.
    std::size_t m_count = 0;
    std::vector<LongList> m_longLists;
    unsigned int m_dimensions = 0;
};

} // namespace TypeFile
