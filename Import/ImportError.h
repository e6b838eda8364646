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

    /// The reason without the place.
    const std::string& reason() const { return m_reason; }

private:
    std::string m_reason;
};

} // namespace Import
