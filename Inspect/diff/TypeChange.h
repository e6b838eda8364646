#pragma once

#include <optional>
#include <string>

namespace Inspect {

/// One difference between a type of A and what became of it in B.
struct TypeChange {
    unsigned int idA; ///< The id in A of the type that changed.
    unsigned int idB; ///< The id in B of the type that it became.

    /// The path from the name of the type, or of the nearest named type around it, to the change:
    /// "pkt_t.hdr.len", "mem_t[]" for the elements, "mem_t[index]", "list_t.all" for the type that
    /// an access type designates, "color_t.RED" for a literal. Names that are not plain identifiers
    /// are in quotes. Printable ASCII.
    std::string path;

    /// The field, by the name that it has in the JSON form: "constraints", "type", "members",
    /// "indexTypes[1]"; "position" for an entry that has moved within its list.
    std::string field;

    std::optional<std::string> before; ///< None if it was added. Printable ASCII.
    std::optional<std::string> after;  ///< None if it was removed. Printable ASCII.
};

} // namespace Inspect
