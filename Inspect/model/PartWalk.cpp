#include "Inspect/model/PartWalk.h"

#include "RTTI/AggregateClasses.h"
#include "RTTI/Ranges.h"

#include <algorithm>

namespace Inspect {

using namespace RTTI;

namespace {

bool hasBaseClass(const RTBaseType& type) {
    if (type.GetClassId() != ClassId::CLASS)
        return false;
    const auto& derived = static_cast<const RTClassType&>(type);
    return derived.m_baseClass != nullptr ||
           derived.m_baseClassTypeId != TypeFileFormat::NO_TYPE_ID;
}

/// The only part of a type that is no aggregate.
struct OnlyPart {
    LinkRole role = LinkRole::ELEMENT;
    unsigned int typeId = TypeFileFormat::NO_TYPE_ID;
    const RTBaseType* type = nullptr;
};

/// Finds it among the fields of a type. Index types are no parts.
template <typename Object> struct PartFinder {
    const Object& object;
    OnlyPart& part;

    template <typename Link>
    void operator()(const char*, unsigned int id, const TypeFile::Form::TypeId<Link>& form) const {
        if (form.role != LinkRole::INDEX)
            part = {form.role, id, object.*form.link};
    }
    template <typename Value, typename Form>
    void operator()(const char*, const Value&, const Form&) const {}
};

OnlyPart onlyPartOf(const RTBaseType& type) {
    OnlyPart part;
    TypeFile::asItsClass(type, [&](const auto& object) {
        TypeFile::forEachField(object, PartFinder<std::decay_t<decltype(object)>>{object, part});
    });
    return part;
}

} // namespace

PartWalk::PartWalk(unsigned int id, const RTBaseType* type, unsigned int maxDepth,
                   unsigned int maxParts)
    : m_maxDepth(maxDepth), m_partsLeft(maxParts) {
    m_part.typeId = id;
    m_part.type = type;
    m_stacks.push_back(std::make_unique<Stack>());
}

bool PartWalk::next() {
    if (!m_isBegun) {
        m_isBegun = true;
        enter();
        return true;
    }
    while (!m_path.empty()) {
        if (m_path.back().nextPart == m_path.back().parts) {
            leave();
            continue;
        }
        m_isCut = m_partsLeft == 0;
        if (m_isCut)
            return false;
        --m_partsLeft;
        enterPart();
        if (m_part.depth <= m_maxDepth)
            return true;
    }
    return false;
}

/// Goes to the next part of the innermost type.
void PartWalk::enterPart() {
    Step& above = m_path.back();
    const std::size_t index = above.nextPart++;
    m_part.depth = static_cast<unsigned int>(m_path.size());
    m_part.above = above.type;
    m_part.isLast = above.nextPart == above.parts;
    m_part.member = nullptr;
    if (isAggregate(above.type->GetClassId())) {
        describePart(static_cast<const RTAggregateType&>(*above.type), index);
    } else {
        const OnlyPart only = onlyPartOf(*above.type);
        m_part.role = only.role;
        m_part.typeId = only.typeId;
        m_part.type = only.type;
    }
    enter();
}

/// A class's base class comes before its members.
void PartWalk::describePart(const RTAggregateType& above, std::size_t index) {
    const std::size_t bases = hasBaseClass(above) ? 1 : 0;
    if (index < bases) {
        const auto& derived = static_cast<const RTClassType&>(above);
        m_part.role = LinkRole::BASE_CLASS;
        m_part.typeId = derived.m_baseClassTypeId;
        m_part.type = derived.m_baseClass;
        return;
    }
    const RTAggregateType::t_Member* member = above.m_members[index - bases];
    m_part.role = LinkRole::MEMBER;
    m_part.member = member;
    m_part.typeId = member != nullptr ? member->m_typeId : TypeFileFormat::NO_TYPE_ID;
    m_part.type = member != nullptr ? above.m_memberTypes[index - bases] : nullptr;
}

/// Puts the part on the path.
void PartWalk::enter() {
    Step step;
    step.type = m_part.type;
    if (m_part.depth != 0 &&
        (m_part.role == LinkRole::ALIASED || m_part.role == LinkRole::BASE_TYPE))
        step.narrowing = m_path.back().narrowing;
    m_part.isSeenAbove = false;
    m_part.ranges.clear();
    if (m_part.member != nullptr) {
        narrow(m_part.member->m_constraints, step);
        push(m_part.member->m_constraints, step);
    }
    switch (m_part.type != nullptr ? m_part.type->GetClassId() : 0) {
    case ClassId::TYPEDEF: {
        const auto& alias = static_cast<const RTTypedefType&>(*m_part.type);
        narrow(alias.m_constraints, step);
        push(alias.m_constraints, step);
        step.parts = 1;
        break;
    }
    case ClassId::DISCRETE_ENUM:
        push(static_cast<const RTDiscreteEnumType&>(*m_part.type).m_constraints, step);
        step.parts = 1;
        break;
    case ClassId::ARRAY: enterArray(static_cast<const RTArrayType&>(*m_part.type), step); break;
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
    case ClassId::ASSOC_ARRAY: enterContainer(step); break;
    case ClassId::RECORD:
    case ClassId::CLASS:
        enterAggregate(static_cast<const RTAggregateType&>(*m_part.type), step);
        break;
    default: break;
    }
    m_part.narrowing = step.narrowing;
    m_part.hasParts = step.parts != 0;
    if (m_part.depth >= m_maxDepth && m_entries == 0)
        step.parts = 0;
    m_path.push_back(step);
}

void PartWalk::enterArray(const RTArrayType& array, Step& step) {
    push(array.m_constraints, step);
    const std::size_t dimensions = array.m_indexTypeIds.size();
    for (std::size_t i = 0; i < dimensions; ++i)
        m_part.ranges.push_back(m_stacks.back()->getConstraint());
    const std::size_t taken = std::min(dimensions, array.m_constraints.size());
    step.entries -= taken;
    m_entries -= taken;
    step.parts = 1;
}

void PartWalk::enterContainer(Step& step) {
    m_stacks.push_back(std::make_unique<Stack>());
    m_outerEntries.push_back(m_entries);
    m_entries = 0;
    step.hasOwnStack = true;
    step.parts = 1;
}

void PartWalk::enterAggregate(const RTAggregateType& aggregate, Step& step) {
    if (!mark(aggregate, step)) {
        m_part.isSeenAbove = true;
        return;
    }
    step.isEntered = true;
    step.parts = std::min(aggregate.m_members.size(), aggregate.m_memberTypes.size()) +
                 (hasBaseClass(aggregate) ? 1 : 0);
}

/// Whether the walk may go below.
bool PartWalk::mark(const RTAggregateType& aggregate, Step& step) {
    if (aggregate.GetClassId() == ClassId::CLASS) {
        if (!m_classes.insert(&aggregate).second)
            return false;
        m_segments.push_back(++m_classesEntered);
        return true;
    }
    std::size_t& segment = m_structs[&aggregate];
    if (segment == m_segments.back())
        return false;
    step.outerSegment = segment;
    segment = m_segments.back();
    return true;
}

/// The outermost level that has bounds tells: those below it are wider.
void PartWalk::narrow(const std::vector<FullConstraints>& ranges, Step& step) {
    if (step.narrowing == nullptr && !ranges.empty() && hasBounds(ranges.front()))
        step.narrowing = &ranges.front();
}

void PartWalk::push(const std::vector<FullConstraints>& ranges, Step& step) {
    m_stacks.back()->push(ranges);
    ++step.frames;
    step.entries += ranges.size();
    m_entries += ranges.size();
}

void PartWalk::leave() {
    const Step& step = m_path.back();
    if (step.hasOwnStack) {
        m_stacks.pop_back();
        m_entries = m_outerEntries.back();
        m_outerEntries.pop_back();
    }
    for (unsigned char i = 0; i < step.frames; ++i)
        m_stacks.back()->pop();
    m_entries -= step.entries;
    if (step.isEntered && step.type->GetClassId() == ClassId::CLASS) {
        m_classes.erase(step.type);
        m_segments.pop_back();
    } else if (step.isEntered && step.outerSegment == 0) {
        m_structs.erase(step.type);
    } else if (step.isEntered) {
        m_structs[step.type] = step.outerSegment;
    }
    m_path.pop_back();
}

} // namespace Inspect
