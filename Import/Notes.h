#pragma once

#include "Import/Place.h"

#include <functional>
#include <string>
#include <utility>

namespace Import {

/// What an import could not keep: told one by one, as it is met, and counted.
class Notes {
public:
    /// Takes a note: a place, and one line about it that begins in lower case and has no full stop.
    using Take = std::function<void(const Place& place, const std::string& text)>;

    /// Notes that are counted alone.
    Notes() = default;

    /// Notes that `take` is told. What it throws ends the import.
    explicit Notes(Take take) : m_take(std::move(take)) {}

    /// Tells one more.
    void add(const Place& place, const std::string& text) {
        ++m_count;
        if (m_take)
            m_take(place, text);
    }

    /// How many there were.
    unsigned long long count() const { return m_count; }

private:
    Take m_take;
    unsigned long long m_count = 0;
};

} // namespace Import
