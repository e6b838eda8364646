#pragma once

#include "Inspect/diff/TypeChange.h"
#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TypeText.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace Inspect {

/// How two files compare.
enum class DiffVerdict {
    IDENTICAL,  ///< Each id has the same type in both files.
    RENUMBERED, ///< The same types, but not all under the same ids.
    COMPATIBLE, ///< Each type of A has an equal in B, and B has more types.
    INCOMPATIBLE
};

/// The name of a verdict, such as "identical".
std::string_view verdictText(DiffVerdict verdict);

/// The meaning of a verdict, in a sentence.
std::string_view ruleText(DiffVerdict verdict);

/// The differences between the types of two files, A and B.
///
/// Types are compared by class, name, fields and the types that they refer to; never by their ids,
/// nor by the SystemVerilog type ids that a compiler assigns (those from 0 on). Each type of A has
/// an equal of its own in B, or it was changed or removed.
class TypeDiff {
public:
    /// The numbers of types.
    struct Counts {
        std::size_t typesOfA = 0;   ///< All of A.
        std::size_t typesOfB = 0;   ///< All of B.
        std::size_t equal = 0;      ///< Types of A with an equal in B.
        std::size_t added = 0;      ///< Types of B without a counterpart in A.
        std::size_t removed = 0;    ///< Types of A without a counterpart in B.
        std::size_t changed = 0;    ///< Types with at least one change of their own.
        std::size_t containing = 0; ///< Types that only refer to changed ones.
    };

    /// Reads all types of both tables, which must outlive the object. Takes about as long
    /// as sorting the types and references, and memory proportional to their number.
    TypeDiff(const TypeTable& a, const TypeTable& b);
    TypeDiff(const TypeDiff&) = delete;
    TypeDiff& operator=(const TypeDiff&) = delete;
    ~TypeDiff();

    /// The overall result.
    DiffVerdict verdict() const { return m_verdict; }

    /// The types of the first file.
    const TypeTable& a() const { return m_a; }

    /// The types of the second file.
    const TypeTable& b() const { return m_b; }

    /// The ids of the types of A that were removed, in ascending order.
    const std::vector<unsigned int>& removed() const { return m_removed; }

    /// The ids of the types of B that were added, in ascending order.
    const std::vector<unsigned int>& added() const { return m_added; }

    /// Passes each change to `take`, in the order of the ids in A, and returns the counts. `lists`
    /// says how long lists of ranges are written in the changes.
    Counts eachChange(const std::function<void(const TypeChange&)>& take,
                      RangeLists lists = RangeLists::SHORT) const;

private:
    class Comparison;

    TypeTable m_a, m_b;
    DiffVerdict m_verdict = DiffVerdict::IDENTICAL;
    std::unique_ptr<const Comparison> m_comparison; ///< Null where nothing changed.
    std::vector<unsigned int> m_removed, m_added;
};

} // namespace Inspect
