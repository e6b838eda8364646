#pragma once

#include "Inspect/model/BitPlaces.h"
#include "Inspect/model/PartWalk.h"
#include "Inspect/words/TypeText.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// A dimension of an array: a range where the shape is fixed.
struct Dimension {
    enum class Kind { RANGE, DYNAMIC, QUEUE, ASSOCIATIVE };
    Kind kind;
    RTTI::FullConstraints range;
};

/// "7 downto 0", or "dynamic", "queue", "associative".
std::string dimensionText(const Dimension& dimension);

/// "0 to 3, 7 downto 0". If they are many, they are shown as runs of equal ones, unless they are
/// wanted whole.
std::string dimensionsText(const std::vector<Dimension>& dimensions, RangeLists lists);

/// The dimensions of a type's values, outermost first, as far as arrays lie directly in one
/// another; those of an enumeration's base type come last. None for what is no array.
std::vector<Dimension> dimensionsOf(unsigned int id, const RTTI::RTBaseType* type);

/// Goes to the leaves of a type, one after the other, as `writeLeaves` describes them. Memory grows
/// with the depth alone.
class LeafWalk {
public:
    /// The walk ends after `maxParts` parts, as PartWalk does. The widths must outlive the walk.
    /// `lists` says how paths have long lists of dimensions.
    LeafWalk(unsigned int id, const RTTI::RTBaseType* type, PackedWidths& widths,
             unsigned int maxParts = PartWalk::ANY_NUMBER, RangeLists lists = RangeLists::WHOLE)
        : m_walk(id, type, PartWalk::ANY_DEPTH, maxParts), m_places(widths), m_lists(lists) {}

    /// Goes to the next leaf; false at the end.
    bool next();

    /// Whether the walk ended because there are more parts than it may go to.
    bool isCut() const { return m_walk.isCut(); }

    // The leaf that `next` went to; until the next call.

    /// The outermost type's name, or its id where it has none, and the names of the members on the
    /// way to the leaf.
    std::string_view path() const { return m_path; }

    /// What it consists of, behind its arrays and typedefs: a scalar, an enumeration, a struct
    /// without members. Null where a link is missing.
    const RTTI::RTBaseType* type() const {
        return m_enumeration != nullptr ? m_enumeration : m_walk.part().type;
    }
    unsigned int typeId() const {
        return m_enumeration != nullptr ? m_enumerationId : m_walk.part().typeId;
    }

    /// The type that the member has, arrays and typedefs included.
    unsigned int declaredTypeId() const { return m_declaredId; }

    /// The type whose encoding is that of the leaf: null where the leaf is a struct or a class, or
    /// where a link is missing.
    const RTTI::RTBaseType* encoded() const;

    /// One a dimension, outermost first; those of an enumeration's base type come last.
    const std::vector<Dimension>& dimensions() const { return m_dimensions; }

    /// None where the leaf is not packed. Of an unpacked array of packed values, they are those of
    /// one element.
    const std::optional<BitPlace>& bits() const { return m_bits; }

    /// What narrows the leaf's values; null for nothing.
    const RTTI::FullConstraints* narrowing() const { return m_walk.part().narrowing; }
    bool isSeenAbove() const { return m_walk.part().isSeenAbove; }

private:
    void meet(const Part& part);
    void beginMember(const Part& part);
    void addDimensions(const Part& part);
    void addDimensionsToPath();

    PartWalk m_walk;
    BitPlaces m_places;
    RangeLists m_lists;
    std::string m_path;
    std::vector<std::size_t> m_pathLengths; ///< With each part on the way.

    // Since the innermost member, base class, or the outermost type.
    unsigned int m_declaredId = RTTI::TypeFileFormat::NO_TYPE_ID;
    std::vector<Dimension> m_dimensions;
    const RTTI::RTBaseType* m_encoded = nullptr; ///< Since the innermost array of variable size.
    const RTTI::RTBaseType* m_enumeration = nullptr; ///< The outermost discrete one.
    unsigned int m_enumerationId = RTTI::TypeFileFormat::NO_TYPE_ID;
    std::optional<BitPlace> m_bits; ///< Of the outermost packed type.
};

} // namespace Inspect
