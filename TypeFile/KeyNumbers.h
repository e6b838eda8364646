#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace TypeFile {

/// Numbers keys of any bytes: equal keys have the same number, the first one 0. Holds a copy of
/// each different key.
///
/// Made for keys by the hundred thousand. The slots lie side by side: maps of the standard library,
/// which follow chains, take twice the time. Keys that come in the order of an earlier time, as
/// those of the same design do, are found without a search.
class KeyNumbers {
public:
    /// Room for so many different keys; there may be more.
    explicit KeyNumbers(std::size_t expected);

    unsigned int of(std::string_view key);
    unsigned int count() const { return static_cast<unsigned int>(m_begins.size() - 1); }

private:
    static constexpr unsigned int FREE = 0xFFFFFFFF;

    struct Slot {
        unsigned int hash = 0;
        unsigned int number = FREE;
    };

    std::string_view keyOf(unsigned int number) const {
        return std::string_view(m_keys).substr(m_begins[number], m_begins[number + std::size_t{1}] -
                                                                     m_begins[number]);
    }
    unsigned int search(std::string_view key);
    void grow();

    std::vector<Slot> m_slots; ///< A power of two, at most half of them in use.
    std::string m_keys;
    std::vector<std::size_t> m_begins{0}; ///< Of each key, and the end of the last.
    unsigned int m_next = 0;              ///< After the number that was given last.
};

} // namespace TypeFile
