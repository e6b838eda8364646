#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>

namespace RTTI {

/// A table of pointers or numbers that are all zero at first.
///
/// Large ones come from the system as pages that are zero already: nothing is written, so that
/// whoever opens a table of a million types and asks for one pays for that one.
template <typename Entry> class ZeroedTable {
public:
    /// No entries.
    ZeroedTable() = default;

    /// Throws std::bad_alloc.
    explicit ZeroedTable(std::size_t size)
        // NOLINTNEXTLINE(bugprone-sizeof-expression): entries may well be pointers.
        : m_entries(static_cast<Entry*>(std::calloc(size, sizeof(Entry)))), m_size(size) {
        if (m_entries == nullptr && size != 0)
            throw std::bad_alloc();
    }

    std::size_t size() const { return m_size; }
    Entry& operator[](std::size_t index) { return m_entries.get()[index]; }
    const Entry& operator[](std::size_t index) const { return m_entries.get()[index]; }
    Entry* begin() { return m_entries.get(); }
    Entry* end() { return m_entries.get() + m_size; }

private:
    struct Release {
        void operator()(Entry* entries) const { std::free(entries); }
    };

    std::unique_ptr<Entry, Release> m_entries;
    std::size_t m_size = 0;
};

} // namespace RTTI
