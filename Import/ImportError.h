#pragma once

#include "Import/Place.h"

#include <stdexcept>
#include <string>

namespace Import {

/// An input that nothing can be imported from: damaged, cut short, empty, or of no known format.
/// `what()` is one line: the place and the reason.
class ImportError : public std::runtime_error {
public:
    /// `reason` is a clause that says what is wrong, and where it helps what to do.
    ImportError(const Place& place, const std::string& reason);

    /// Without the place.
    const std::string& reason() const { return m_reason; }

private:
    std::string m_reason;
};

} // namespace Import
