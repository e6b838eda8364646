#pragma once

#include <optional>
#include <string>

namespace Inspect {

/// One difference between a type of A and what became of it in B.
struct TypeChange {
    unsigned int idA; ///< Of the type that the change lies in, in A.
    unsigned int idB; ///< Of what it became, in B.

    /// From the name of the type, or of the one around it that has a name, to what differs:
    /// "pkt_t.hdr.len", "mem_t[]" for the elements, "mem_t[index]", "list_t.all" for what an
    /// access type designates, "color_t.RED" for a literal. Names that are no plain identifiers
    /// are in quotes. Printable ASCII.
    std::string path;

    /// The field, by the name that it has in the JSON form: "constraints", "type", "members",
    /// "indexTypes[1]"; "position" for an entry that stands elsewhere in its list.
    std::string field;

    std::optional<std::string> before; ///< None for what was added. Printable ASCII.
    std::optional<std::string> after;  ///< None for what was removed. Printable ASCII.
};

} // namespace Inspect
