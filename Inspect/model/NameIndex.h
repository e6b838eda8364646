#pragma once

#include "Inspect/model/TypeTable.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// The types of a table by name. Made in one pass over the table; the types must outlive it.
class NameIndex {
public:
    explicit NameIndex(const TypeTable& types);

    /// The ids of the types with a name, in ascending order. A typedef and the type of the same
    /// name that it stands for are one type here: the typedef.
    std::vector<unsigned int> idsOf(std::string_view name) const;

private:
    TypeTable m_types;
    std::unordered_map<std::string_view, std::vector<unsigned int>> m_ids;
};

} // namespace Inspect
