#include "Import/ImportError.h"

namespace Import {

ImportError::ImportError(const Place& place, const std::string& reason)
    : std::runtime_error(place.text().empty() ? reason : place.text() + ": " + reason),
      m_place(place), m_reason(reason) {}

} // namespace Import
