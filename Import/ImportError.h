#pragma once

#include "Import/Place.h"

#include <stdexcept>
#include <string>

namespace Import {

/// Thrown for an input that cannot be imported: damaged, cut short, empty, or of an unknown format.
/// `what()` is one line: the place and the reason.
class ImportError : public std::runtime_error {
public:
    /// `reason` is a clause that says what is wrong and, if that helps, what to do.
    ImportError(const Place& place, const std::string& reason);

    /// The place without the reason.
    const Place& place() const { return m_place; }

    /// The reason without the place.
    const std::string& reason() const { return m_reason; }

private:
    Place m_place;
    std::string m_reason;
};

} // namespace Import
