#include "Import/Place.h"

#include <utility>

namespace Import {

Place Place::line(std::shared_ptr<const std::string> file, unsigned long long number) {
    return {std::move(file), number, Unit::LINE};
}

Place Place::offset(std::shared_ptr<const std::string> file, unsigned long long number) {
    return {std::move(file), number, Unit::OFFSET};
}

std::string Place::text() const {
    if (m_file == nullptr)
        return "";
    switch (m_unit) {
    case Unit::LINE: return *m_file + ":" + std::to_string(m_number);
    case Unit::OFFSET: return *m_file + ": offset " + std::to_string(m_number);
    case Unit::WHOLE: break;
    }
    return *m_file;
}

} // namespace Import
