// Every populateTypeConstraints: the walk that flattens the ranges of a type and of its parts.

#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace RTTI {

namespace {

using Stack = Brakel_tolv::ConstraintStack<FullConstraints>;

/// The classes on the path of the walks that go on in this thread; empty between walks.
std::set<const RTClassType*>& classesOnPath() {
    thread_local std::set<const RTClassType*> visitedRTClassTypeSet;
    return visitedRTClassTypeSet;
}

/// A type that the walk goes through: what it adds to the stack, and what is below it.
struct Passage {
    const std::vector<FullConstraints>* constraints; ///< Null where nothing goes through.
    const RTBaseType* below;
    std::size_t dimensions;
};

Passage passageThrough(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(type);
        return {&array.m_constraints, array.m_elementType, array.m_indexTypeIds.size()};
    }
    case ClassId::TYPEDEF: {
        const auto& alias = static_cast<const RTTypedefType&>(type);
        return {&alias.m_constraints, alias.m_dataType, 0};
    }
    case ClassId::DISCRETE_ENUM: {
        const auto& enumeration = static_cast<const RTDiscreteEnumType&>(type);
        return {&enumeration.m_constraints, enumeration.m_baseType, 0};
    }
    default: return {nullptr, nullptr, 0};
    }
}

bool isAggregate(const RTBaseType& type) {
    const unsigned int classId = type.GetClassId();
    return classId == ClassId::RECORD || classId == ClassId::CLASS;
}

/// One walk. Its output is that of the walk over every path on which no class comes twice, and no
/// struct twice without a class in between.
///
/// So that the cost grows with the output and not with the paths, an aggregate below which nothing
/// was found is barren: it is passed by until something below it changes, that is, until a class
/// that ended a path there has itself left the path and had something to give.
class ConstraintWalk {
public:
    ConstraintWalk(Stack& stack, std::vector<FullConstraints>& out) : m_stack(stack), m_out(out) {}
    ConstraintWalk(const ConstraintWalk&) = delete;
    ConstraintWalk& operator=(const ConstraintWalk&) = delete;

    /// Takes the marks and the frames back that an exception left.
    ~ConstraintWalk() {
        while (!m_path.empty())
            leavePath();
    }

    void walk(const RTBaseType& outermost) {
        enter(&outermost);
        while (!m_path.empty())
            advance();
    }

private:
    /// A type on the path.
    struct Step {
        const RTBaseType* below;          ///< Behind a passage, until it is entered.
        const RTAggregateType* aggregate; ///< Null for a passage.
        bool isClass;
        bool holdsFrame;
        std::size_t nextPart;
        std::size_t outputBefore;
        std::size_t outerSegment; ///< What a struct's entry in m_structs said before.
    };

    static constexpr std::size_t NO_SEGMENT = 0;

    void enter(const RTBaseType* type);
    void enterPassage(const Passage& passage);
    void enterClass(const RTClassType& type);
    void enterStruct(const RTAggregateType& type);
    void advance();
    void advanceAggregate(Step& step);
    void leave();
    Step leavePath();
    void waitForParts(const RTAggregateType& barren);
    void waitFor(const RTBaseType* part, const RTAggregateType& barren);
    void revive(const RTAggregateType& changed);

    Stack& m_stack;
    std::vector<FullConstraints>& m_out;
    std::vector<Step> m_path;
    std::size_t m_classesEntered = NO_SEGMENT + 1;
    std::vector<std::size_t> m_segments{NO_SEGMENT +
                                        1}; ///< One a class on the path, the last counts.
    std::unordered_map<const RTAggregateType*, std::size_t> m_structs; ///< Segment it is open in.
    std::vector<const RTAggregateType*> m_endedAt; ///< Structs that ended a path.
    std::unordered_set<const RTAggregateType*> m_barren;
    std::unordered_map<const RTAggregateType*, std::vector<const RTAggregateType*>> m_waiting;
};

void ConstraintWalk::enter(const RTBaseType* type) {
    if (type == nullptr)
        return;
    if (!isAggregate(*type)) {
        const Passage passage = passageThrough(*type);
        if (passage.constraints != nullptr)
            enterPassage(passage);
        else
            type->populateTypeConstraints(m_stack, m_out);
        return;
    }
    const auto& aggregate = static_cast<const RTAggregateType&>(*type);
    if (m_barren.count(&aggregate) != 0)
        return;
    if (type->GetClassId() == ClassId::CLASS)
        enterClass(static_cast<const RTClassType&>(aggregate));
    else
        enterStruct(aggregate);
}

void ConstraintWalk::enterPassage(const Passage& passage) {
    m_path.push_back({passage.below, nullptr, false, false, 0, m_out.size(), NO_SEGMENT});
    m_stack.push(*passage.constraints);
    m_path.back().holdsFrame = true;
    for (std::size_t i = 0; i < passage.dimensions; ++i)
        m_out.push_back(m_stack.getConstraint());
}

void ConstraintWalk::enterClass(const RTClassType& type) {
    if (!classesOnPath().insert(&type).second)
        return;
    try {
        m_segments.push_back(++m_classesEntered); // One too many does not matter: the walk ends.
        m_path.push_back({nullptr, &type, true, false, 0, m_out.size(), NO_SEGMENT});
    } catch (...) {
        classesOnPath().erase(&type);
        throw;
    }
    for (const RTAggregateType* ended : m_endedAt) // From here they may be walked again.
        revive(*ended);
    m_endedAt.clear();
}

void ConstraintWalk::enterStruct(const RTAggregateType& type) {
    std::size_t& segment = m_structs[&type];
    if (segment == m_segments.back()) {
        m_endedAt.push_back(&type);
        return;
    }
    m_path.push_back({nullptr, &type, false, false, 0, m_out.size(), segment});
    segment = m_segments.back();
}

void ConstraintWalk::advance() {
    Step& step = m_path.back();
    if (step.aggregate != nullptr) {
        advanceAggregate(step);
    } else if (const RTBaseType* below = step.below) {
        step.below = nullptr;
        enter(below);
    } else {
        leave();
    }
}

/// Part 0 of a class is its base class, which gets no frame of its own.
void ConstraintWalk::advanceAggregate(Step& step) {
    const RTAggregateType& aggregate = *step.aggregate;
    if (step.holdsFrame) {
        m_stack.pop();
        step.holdsFrame = false;
    }
    const std::size_t part = step.nextPart++;
    if (step.isClass && part == 0) {
        enter(static_cast<const RTClassType&>(aggregate).m_baseClass);
        return;
    }
    const std::size_t member = step.isClass ? part - 1 : part;
    if (member >= std::min(aggregate.m_members.size(), aggregate.m_memberTypes.size())) {
        leave();
        return;
    }
    if (aggregate.m_members[member] == nullptr)
        return;
    m_stack.push(aggregate.m_members[member]->m_constraints);
    step.holdsFrame = true;
    enter(aggregate.m_memberTypes[member]);
}

void ConstraintWalk::leave() {
    const Step step = leavePath();
    if (step.aggregate == nullptr)
        return;
    if (m_out.size() != step.outputBefore)
        revive(*step.aggregate);
    else if (m_barren.insert(step.aggregate).second)
        waitForParts(*step.aggregate);
}

/// Allocates nothing, so that an exception can be cleaned up after.
ConstraintWalk::Step ConstraintWalk::leavePath() {
    const Step step = m_path.back();
    m_path.pop_back();
    if (step.holdsFrame)
        m_stack.pop();
    if (step.isClass) {
        classesOnPath().erase(static_cast<const RTClassType*>(step.aggregate));
        m_segments.pop_back();
    } else if (step.aggregate != nullptr) {
        m_structs[step.aggregate] = step.outerSegment;
    }
    return step;
}

/// A barren aggregate is looked at again once one of its parts has something to give.
void ConstraintWalk::waitForParts(const RTAggregateType& barren) {
    if (barren.GetClassId() == ClassId::CLASS)
        waitFor(static_cast<const RTClassType&>(barren).m_baseClass, barren);
    for (const RTBaseType* part : barren.m_memberTypes)
        waitFor(part, barren);
}

void ConstraintWalk::waitFor(const RTBaseType* part, const RTAggregateType& barren) {
    while (part != nullptr && !isAggregate(*part))
        part = passageThrough(*part).below;
    if (part != nullptr)
        m_waiting[static_cast<const RTAggregateType*>(part)].push_back(&barren);
}

void ConstraintWalk::revive(const RTAggregateType& changed) {
    std::vector<const RTAggregateType*> revived{&changed};
    while (!revived.empty()) {
        const RTAggregateType* type = revived.back();
        revived.pop_back();
        m_barren.erase(type);
        const auto waiting = m_waiting.find(type);
        if (waiting == m_waiting.end())
            continue;
        for (const RTAggregateType* barren : waiting->second) {
            if (m_barren.count(barren) != 0)
                revived.push_back(barren);
        }
        m_waiting.erase(waiting);
    }
}

void walkFrom(const RTBaseType& type, Stack& stack, std::vector<FullConstraints>& out) {
    ConstraintWalk(stack, out).walk(type);
}

} // namespace

void RTBaseType::populateTypeConstraints(Stack&, std::vector<FullConstraints>&) const {}

void RTArrayType::populateTypeConstraints(Stack& stack, std::vector<FullConstraints>& out) const {
    walkFrom(*this, stack, out);
}

void RTAggregateType::populateTypeConstraints(Stack& stack,
                                              std::vector<FullConstraints>& out) const {
    walkFrom(*this, stack, out);
}

void RTClassType::populateTypeConstraints(Stack& stack, std::vector<FullConstraints>& out) const {
    walkFrom(*this, stack, out);
}

void RTTypedefType::populateTypeConstraints(Stack& stack, std::vector<FullConstraints>& out) const {
    walkFrom(*this, stack, out);
}

void RTDiscreteEnumType::populateTypeConstraints(Stack& stack,
                                                 std::vector<FullConstraints>& out) const {
    walkFrom(*this, stack, out);
}

} // namespace RTTI
