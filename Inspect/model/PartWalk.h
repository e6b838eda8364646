#pragma once

#include "Inspect/model/TypeReferences.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Inspect {

/// A type as a part of the one above it.
struct Part {
    unsigned int depth = 0; ///< 0 for the outermost type, of which nothing is above.
    const RTTI::RTBaseType* above = nullptr; ///< The type that it is a part of.
    LinkRole role = LinkRole::MEMBER;        ///< Of no meaning at depth 0.
    const RTTI::RTAggregateType::t_Member* member =
        nullptr; ///< In that role, unless it is missing.
    unsigned int typeId = RTTI::TypeFileFormat::NO_TYPE_ID;
    const RTTI::RTBaseType* type = nullptr;    ///< Null where there is none.
    bool isLast = true;                        ///< Of the parts of the type above.
    bool isSeenAbove = false;                  ///< On the way to it; its parts do not come again.
    bool hasParts = false;                     ///< Whether they come or lie too deep.
    std::vector<RTTI::FullConstraints> ranges; ///< One a dimension of an array of fixed shape.
    const RTTI::FullConstraints* narrowing =
        nullptr; ///< Of a scalar's values, by a level above it.
};

/// Takes a type apart, depth first, each type before its parts, those in the order of the record.
///
/// The ranges are those that `populateTypeConstraints` gives for the outermost type, in its order:
/// the walk has the same frames on its stack and ends a path where that does, at a class that is on
/// it already and at a struct that is, without a class in between. That walk does not go below
/// dynamic arrays, queues and associative arrays; this one does, and gives the ranges there that
/// the element type has by itself. Neither goes behind access and file types.
///
/// A cycle of links must lead through a struct or a class, as in every type that was loaded. Memory
/// grows with the depth alone.
class PartWalk {
public:
    static constexpr unsigned int ANY_DEPTH = std::numeric_limits<unsigned int>::max();
    static constexpr unsigned int ANY_NUMBER = std::numeric_limits<unsigned int>::max();

    /// `type` may be null; it and what is below it must outlive the walk. What lies deeper than
    /// `maxDepth` does not come; it is still gone through where it takes ranges from above away
    /// from parts that come. After `maxParts` parts, those that lie too deep included, the walk
    /// ends: a short file can hold a type of 2^40 parts.
    PartWalk(unsigned int id, const RTTI::RTBaseType* type, unsigned int maxDepth = ANY_DEPTH,
             unsigned int maxParts = ANY_NUMBER);

    /// Goes to the next part; false at the end.
    bool next();

    /// Whether the walk ended because there are more parts than it may go to.
    bool isCut() const { return m_isCut; }

    /// The part that `next` went to; until the next call.
    const Part& part() const { return m_part; }

private:
    using Stack = Brakel_tolv::ConstraintStack<RTTI::FullConstraints>;

    /// A type on the path.
    struct Step {
        const RTTI::RTBaseType* type = nullptr;
        std::size_t nextPart = 0;
        std::size_t parts = 0;
        std::size_t outerSegment = 0; ///< What a struct's entry in m_structs said before.
        std::size_t entries = 0;      ///< In its frames, those left out that it took itself.
        const RTTI::FullConstraints* narrowing = nullptr;
        unsigned char frames = 0; ///< On the stack.
        bool isEntered = false;   ///< As a struct or class.
        bool hasOwnStack = false; ///< For what is below.
    };

    void enterPart();
    void describePart(const RTTI::RTAggregateType& above, std::size_t index);
    void enter();
    void enterArray(const RTTI::RTArrayType& array, Step& step);
    void enterContainer(Step& step);
    void enterAggregate(const RTTI::RTAggregateType& aggregate, Step& step);
    bool mark(const RTTI::RTAggregateType& aggregate, Step& step);
    void narrow(const std::vector<RTTI::FullConstraints>& ranges, Step& step);
    void push(const std::vector<RTTI::FullConstraints>& ranges, Step& step);
    void leave();

    unsigned int m_maxDepth;
    unsigned int m_partsLeft;
    bool m_isCut = false;
    Part m_part;
    bool m_isBegun = false;
    std::vector<Step> m_path;
    std::vector<std::unique_ptr<Stack>> m_stacks; ///< One more a container on the path.
    std::size_t m_entries = 0; ///< On the innermost stack, as far as something may take them.
    std::vector<std::size_t> m_outerEntries;               ///< The same for the stacks around.
    std::unordered_set<const RTTI::RTBaseType*> m_classes; ///< On the path.

    // A struct ends a path where it is open in the segment that began with the last class.
    std::unordered_map<const RTTI::RTBaseType*, std::size_t> m_structs; ///< On the path.
    std::vector<std::size_t> m_segments{1}; ///< Numbers, one a class on the path.
    std::size_t m_classesEntered = 1;
};

} // namespace Inspect
