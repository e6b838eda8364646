// Every populateTypeConstraints: the walk that flattens the ranges of a type and of its parts.

#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>
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

inline Passage passageThrough(const RTBaseType& type, unsigned int classId) {
    switch (classId) {
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

/// Takes frames off the stack again.
class FrameScope {
public:
    explicit FrameScope(Stack& stack) : m_stack(stack) {}
    FrameScope(const FrameScope&) = delete;
    FrameScope& operator=(const FrameScope&) = delete;
    ~FrameScope() {
        for (; m_frames != 0; --m_frames)
            m_stack.pop();
    }

    void push(const std::vector<FullConstraints>& constraints) {
        m_stack.push(constraints);
        ++m_frames;
    }

    /// Leaves the frames to somebody else.
    std::size_t release() { return std::exchange(m_frames, 0); }

private:
    Stack& m_stack;
    std::size_t m_frames = 0;
};

/// Pushes what a type on the way adds, and takes the ranges of its dimensions.
inline void passBy(const Passage& passage, Stack& stack, FrameScope& frames,
                   std::vector<FullConstraints>& out) {
    frames.push(*passage.constraints);
    for (std::size_t i = 0; i < passage.dimensions; ++i)
        out.push_back(stack.getConstraint());
}

/// Goes through a type and what is below it, up to an aggregate, which is the answer, or to the
/// end. The frames of all that was gone through are then on the stack.
inline const RTAggregateType* goThrough(const RTBaseType* type, Stack& stack, FrameScope& frames,
                                        std::vector<FullConstraints>& out) {
    while (type != nullptr) {
        const unsigned int classId = type->GetClassId();
        if (classId == ClassId::RECORD || classId == ClassId::CLASS)
            return static_cast<const RTAggregateType*>(type);
        const Passage passage = passageThrough(*type, classId);
        if (passage.constraints == nullptr) {
            type->populateTypeConstraints(stack, out);
            return nullptr;
        }
        passBy(passage, stack, frames, out);
        type = passage.below;
    }
    return nullptr;
}

/// The walk of an aggregate. Its output is that of the walk over every path on which no class comes
/// twice, and no struct twice without a class in between.
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

    void walk(const RTAggregateType& outermost) {
        enter(outermost);
        while (!m_path.empty())
            advance();
    }

private:
    /// An aggregate on the path.
    struct Step {
        const RTAggregateType* aggregate;
        bool isClass;
        std::size_t nextPart;
        std::size_t frames; ///< That were pushed on the way to it.
        std::size_t outputBefore;
        std::size_t outerSegment; ///< What a struct's entry in m_structs said before.
    };

    static constexpr std::size_t NO_SEGMENT = 0;

    bool enter(const RTAggregateType& aggregate);
    bool enterClass(const RTClassType& type);
    bool enterStruct(const RTAggregateType& type);
    void advance();
    bool walkPart(const RTAggregateType& aggregate, bool isClass, std::size_t part);
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

/// Whether the aggregate is on the path now.
bool ConstraintWalk::enter(const RTAggregateType& aggregate) {
    if (m_barren.count(&aggregate) != 0)
        return false;
    if (aggregate.GetClassId() == ClassId::CLASS)
        return enterClass(static_cast<const RTClassType&>(aggregate));
    return enterStruct(aggregate);
}

bool ConstraintWalk::enterClass(const RTClassType& type) {
    if (!classesOnPath().insert(&type).second)
        return false;
    try {
        m_segments.push_back(++m_classesEntered); // One too many does not matter: the walk ends.
        m_path.push_back({&type, true, 0, 0, m_out.size(), NO_SEGMENT});
    } catch (...) {
        classesOnPath().erase(&type);
        throw;
    }
    for (const RTAggregateType* ended : m_endedAt) // From here they may be walked again.
        revive(*ended);
    m_endedAt.clear();
    return true;
}

bool ConstraintWalk::enterStruct(const RTAggregateType& type) {
    std::size_t& segment = m_structs[&type];
    if (segment == m_segments.back()) {
        m_endedAt.push_back(&type);
        return false;
    }
    m_path.push_back({&type, false, 0, 0, m_out.size(), segment});
    segment = m_segments.back();
    return true;
}

/// Walks parts of the innermost aggregate until one is an aggregate itself.
void ConstraintWalk::advance() {
    const RTAggregateType& aggregate = *m_path.back().aggregate;
    const bool isClass = m_path.back().isClass;
    const std::size_t members =
        std::min(aggregate.m_members.size(), aggregate.m_memberTypes.size());
    const std::size_t parts = members + (isClass ? 1 : 0);
    std::size_t part = m_path.back().nextPart;
    while (part < parts) {
        m_path.back().nextPart = part + 1;
        if (walkPart(aggregate, isClass, part++))
            return;
    }
    leave();
}

/// Part 0 of a class is its base class, which gets no frame of its own. Whether the walk goes on
/// below the part.
bool ConstraintWalk::walkPart(const RTAggregateType& aggregate, bool isClass, std::size_t part) {
    FrameScope frames(m_stack);
    const RTBaseType* type = nullptr;
    if (isClass && part == 0) {
        type = static_cast<const RTClassType&>(aggregate).m_baseClass;
    } else {
        const std::size_t member = isClass ? part - 1 : part;
        if (aggregate.m_members[member] == nullptr)
            return false;
        frames.push(aggregate.m_members[member]->m_constraints);
        type = aggregate.m_memberTypes[member];
    }
    const RTAggregateType* const below = goThrough(type, m_stack, frames, m_out);
    if (below == nullptr || !enter(*below))
        return false;
    m_path.back().frames = frames.release();
    return true;
}

void ConstraintWalk::leave() {
    const Step step = leavePath();
    if (m_out.size() != step.outputBefore)
        revive(*step.aggregate);
    else if (m_barren.insert(step.aggregate).second)
        waitForParts(*step.aggregate);
}

/// Allocates nothing, so that an exception can be cleaned up after.
ConstraintWalk::Step ConstraintWalk::leavePath() {
    const Step step = m_path.back();
    m_path.pop_back();
    for (std::size_t i = 0; i < step.frames; ++i)
        m_stack.pop();
    if (step.isClass) {
        classesOnPath().erase(static_cast<const RTClassType*>(step.aggregate));
        m_segments.pop_back();
    } else {
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
        part = passageThrough(*part, part->GetClassId()).below;
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
    FrameScope frames(stack);
    if (const RTAggregateType* aggregate = goThrough(&type, stack, frames, out))
        ConstraintWalk(stack, out).walk(*aggregate);
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
