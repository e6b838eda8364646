#pragma once

#include "Inspect/model/TypeTable.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// The ids of types of one name without those that a typedef among them stands for: both are one
/// type, the typedef. Ids without a type are left out.
std::vector<unsigned int> withoutNamesakes(const TypeTable& types, std::vector<unsigned int> ids);

/// The types of a table by name. Made in one pass over the table; the types must outlive it.
class NameIndex {
public:
    explicit NameIndex(const TypeTable& types);

    /// The ids of the types with a name, in ascending order, without namesakes.
    std::vector<unsigned int> idsOf(std::string_view name) const;

private:
    TypeTable m_types;
    std::unordered_map<std::string_view, std::vector<unsigned int>> m_ids;
};

} // namespace Inspect
