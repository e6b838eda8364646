#pragma once

#include "Inspect/model/TypeTable.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// What two files are to one another.
enum class DiffVerdict {
    IDENTICAL,  ///< Each id has the same type in both.
    RENUMBERED, ///< The same types, but not all under the same ids.
    COMPATIBLE, ///< Each type of A has an equal in B, and B has more types.
    INCOMPATIBLE
};

/// "identical", and so on.
std::string_view verdictText(DiffVerdict verdict);

/// What a verdict says, in a sentence.
std::string_view ruleText(DiffVerdict verdict);

/// One difference between a type of A and what became of it in B.
struct TypeChange {
    unsigned int idA; ///< Of the type that the change lies in, in A.
    unsigned int idB; ///< Of what it became, in B.

    /// From the name of the type, or of the one around it that has a name, to what differs:
    /// "pkt_t.hdr.len", "mem_t[]" for the elements, "mem_t[index]", "list_t.all" for what an
    /// access type designates, "color_t.RED" for a literal. Names that are no plain identifiers
    /// are in quotes. Printable ASCII.
    std::string path;

    /// The field: "range", "type", "literal", ...
    std::string what;

    std::optional<std::string> before; ///< None for what was added. Printable ASCII.
    std::optional<std::string> after;  ///< None for what was removed. Printable ASCII.
};

/// The differences between the types of two files, A and B.
///
/// Types are told apart by class, name and fields, and by the types that they refer to; never by
/// their ids, nor by the SystemVerilog type ids that a compiler gave away (those from 0 on). Each
/// type of A has one of B to itself that equals it, or it was changed or removed.
class TypeDiff {
public:
    /// Numbers of types.
    struct Counts {
        std::size_t typesOfA = 0;   ///< All of A.
        std::size_t typesOfB = 0;   ///< All of B.
        std::size_t equal = 0;      ///< Types of A with an equal in B.
        std::size_t added = 0;      ///< Types of B that nothing in A became.
        std::size_t removed = 0;    ///< Types of A that became nothing in B.
        std::size_t changed = 0;    ///< With at least one change of their own.
        std::size_t containing = 0; ///< Without, but they refer to such as were changed.
    };

    /// Reads all types of both, which must outlive the object. Time and memory grow with the number
    /// of types and references, as sorting does.
    TypeDiff(const TypeTable& a, const TypeTable& b);
    TypeDiff(const TypeDiff&) = delete;
    TypeDiff& operator=(const TypeDiff&) = delete;
    ~TypeDiff();

    /// What the differences come to.
    DiffVerdict verdict() const { return m_verdict; }

    /// The types of the first file.
    const TypeTable& a() const { return m_a; }

    /// The types of the second file.
    const TypeTable& b() const { return m_b; }

    /// Ids of types of A, in their order.
    const std::vector<unsigned int>& removed() const { return m_removed; }

    /// Ids of types of B, in their order.
    const std::vector<unsigned int>& added() const { return m_added; }

    /// Gives each change in the order of the ids in A, and counts.
    Counts eachChange(const std::function<void(const TypeChange&)>& take) const;

private:
    class Comparison;

    TypeTable m_a, m_b;
    DiffVerdict m_verdict = DiffVerdict::IDENTICAL;
    std::unique_ptr<const Comparison> m_comparison; ///< Null where nothing changed.
    std::vector<unsigned int> m_removed, m_added;
};

} // namespace Inspect
