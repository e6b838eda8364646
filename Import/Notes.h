#pragma once

#include "Import/Place.h"

#include <functional>
#include <string>
#include <utility>

namespace Import {

/// Reports what an import could not keep, one note at a time, and counts the notes.
class Notes {
public:
    /// Receives a note: a place, and one line that begins in lower case and has no full stop.
    using Take = std::function<void(const Place& place, const std::string& text)>;

    /// Only counts the notes.
    Notes() = default;

    /// Calls `take` for each note. An exception that it throws ends the import.
    explicit Notes(Take take) : m_take(std::move(take)) {}

    /// Reports a note.
    void add(const Place& place, const std::string& text) {
        ++m_count;
        if (m_take)
            m_take(place, text);
    }

    /// The number of notes so far.
    unsigned long long count() const { return m_count; }

private:
    Take m_take;
    unsigned long long m_count = 0;
};

} // namespace Import
