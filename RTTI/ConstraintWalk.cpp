// Every populateTypeConstraints: the walk that flattens the ranges of a type and of its parts.

#include "RTTI/AggregateClasses.h"
#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/ExactClasses.h"
#include "RTTI/RTType.h"

#include <algorithm>
#include <limits>
#include <set>
#include <typeinfo>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace RTTI {

namespace {

using Stack = Brakel_tolv::ConstraintStack<FullConstraints>;
using Ranges = std::vector<FullConstraints>;

/// The classes on the path of the walks that go on in this thread; empty between walks.
std::set<const RTClassType*>& classesOnPath() {
    thread_local std::set<const RTClassType*> visitedRTClassTypeSet;
    return visitedRTClassTypeSet;
}

/// A type that a walk goes through: what it adds to the stack, and what is below it.
struct Level {
    const Ranges* ranges; ///< Null where nothing goes through.
    const RTBaseType* below;
    std::size_t dimensions;
};

Level levelOf(const RTBaseType& type) {
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

/// Whether walks end at the type, of a class that `classIdOf` tells, and give nothing for it.
/// Classes that are not the library's may answer otherwise.
inline bool isEmptyEnd(const RTBaseType& type, unsigned int classId) {
    const std::type_info* const exact = &typeid(type);
    switch (classId) {
    case SCALAR: return true;
    case ClassId::STRING: return exact == &typeid(RTStringType);
    case ClassId::EVENT: return exact == &typeid(RTEventType);
    case ClassId::CHANDLE: return exact == &typeid(RTCHandle);
    case ClassId::WILDCARD: return exact == &typeid(RTWildCardType);
    case ClassId::PHYSICAL: return exact == &typeid(RTPhysicalType);
    case ClassId::ACCESS: return exact == &typeid(RTAccessType);
    case ClassId::FILE_TYPE: return exact == &typeid(RTFileType);
    case ClassId::DYNAMIC_ARRAY: return exact == &typeid(RTDynamicArrayType);
    case ClassId::QUEUE: return exact == &typeid(RTQueueType);
    case ClassId::ASSOC_ARRAY: return exact == &typeid(RTAssocArrayType);
    default: return false;
    }
}

/// The levels of a way down whose frames are not on the stack. Most never get there: most arrays
/// give their own ranges, and most ways end at a scalar.
class UnpushedLevels {
public:
    /// `memberRanges` are those of the member through which the way goes; null for none.
    UnpushedLevels(const Ranges* memberRanges, const RTBaseType* first, Stack& stack)
        : m_memberRanges(memberRanges), m_first(first), m_stack(stack) {}

    // These two stay out of the loop that they are seldom called from.

    /// Pushes the levels before `end`, whose arrays have given their own ranges.
    [[gnu::noinline]] void pushBefore(const RTBaseType* end) {
        if (m_memberRanges != nullptr)
            m_stack.pushLasting(*std::exchange(m_memberRanges, nullptr));
        while (m_first != end) {
            const Level level = levelOf(*m_first);
            if (level.ranges == nullptr)
                return; // A type that answers another class id than before.
            m_stack.pushLasting(*level.ranges);
            for (std::size_t i = 0; i < level.dimensions; ++i)
                m_stack.getConstraint();
            m_first = level.below;
        }
    }

    /// Pushes an array and the levels before it. The stack gives the array's ranges.
    [[gnu::noinline]] void pushArray(const RTArrayType& array, Ranges& out) {
        pushBefore(&array);
        m_stack.pushLasting(array.m_constraints);
        for (std::size_t i = 0; i < array.m_indexTypeIds.size(); ++i)
            out.push_back(m_stack.getConstraint());
        m_first = array.m_elementType;
    }

private:
    const Ranges* m_memberRanges;
    const RTBaseType* m_first;
    Stack& m_stack;
};

/// Whether an array gives the ranges of all its dimensions, whatever is around it. They are then in
/// the output.
inline bool givesOwnRanges(const RTArrayType& array, Ranges& out) {
    const Ranges& own = array.m_constraints;
    const std::size_t dimensions = array.m_indexTypeIds.size();
    if (own.size() < dimensions || hasOpenRanges(own))
        return false;
    for (std::size_t i = 0; i < dimensions; ++i)
        out.push_back(own[i]);
    return true;
}

/// Goes through a type and what is below it, up to an aggregate, which is the answer, or to the
/// end. What is not on the stack then is in `unpushed`, which begins with the type.
inline const RTAggregateType* goThrough(const RTBaseType* type, UnpushedLevels& unpushed,
                                        Stack& stack, Ranges& out) {
    while (type != nullptr) {
        const unsigned int classId = classIdOf(*type);
        if (classId == ClassId::ARRAY) {
            const auto& array = static_cast<const RTArrayType&>(*type);
            if (!givesOwnRanges(array, out))
                unpushed.pushArray(array, out);
            type = array.m_elementType;
        } else if (classId == ClassId::TYPEDEF) {
            type = static_cast<const RTTypedefType*>(type)->m_dataType;
        } else if (classId == SCALAR) {
            return nullptr;
        } else if (classId == ClassId::DISCRETE_ENUM) {
            type = static_cast<const RTDiscreteEnumType*>(type)->m_baseType;
        } else if (isAggregate(classId)) {
            return static_cast<const RTAggregateType*>(type);
        } else {
            if (isEmptyEnd(*type, classId))
                return nullptr;
            unpushed.pushBefore(type);
            type->populateTypeConstraints(stack, out);
            return nullptr;
        }
    }
    return nullptr;
}

using AggregateSet = std::unordered_set<const RTAggregateType*>;

/// The aggregate that a way down ends at, or null. If `gives` is given, it is set where something
/// on the way may give ranges.
const RTAggregateType* endOfWay(const RTBaseType* type, bool* gives = nullptr) {
    while (type != nullptr && !isAggregate(type->GetClassId())) {
        const Level level = levelOf(*type);
        if (gives != nullptr && !*gives)
            *gives = level.dimensions != 0 ||
                     (level.ranges == nullptr && !isEmptyEnd(*type, classIdOf(*type)));
        type = level.below;
    }
    return static_cast<const RTAggregateType*>(type);
}

/// Calls `take` with each type that is a part of the aggregate, in any order.
template <typename Take> void forEachPart(const RTAggregateType& aggregate, const Take& take) {
    if (aggregate.GetClassId() == ClassId::CLASS)
        take(static_cast<const RTClassType&>(aggregate).m_baseClass);
    for (const RTBaseType* part : aggregate.m_memberTypes)
        take(part);
}

/// The aggregates in and below one from which no path leads to anything that gives ranges.
AggregateSet fruitlessBelow(const RTAggregateType& outermost) {
    AggregateSet fruitless{&outermost};
    std::vector<const RTAggregateType*> found{&outermost};
    std::vector<const RTAggregateType*> fruitful;
    std::unordered_map<const RTAggregateType*, std::vector<const RTAggregateType*>> holders;
    for (std::size_t i = 0; i < found.size(); ++i) {
        bool gives = false;
        forEachPart(*found[i], [&](const RTBaseType* part) {
            const RTAggregateType* const below = endOfWay(part, &gives);
            if (below == nullptr)
                return;
            holders[below].push_back(found[i]);
            if (fruitless.insert(below).second)
                found.push_back(below);
        });
        if (gives)
            fruitful.push_back(found[i]);
    }
    while (!fruitful.empty()) {
        const RTAggregateType* const aggregate = fruitful.back();
        fruitful.pop_back();
        if (fruitless.erase(aggregate) == 0)
            continue;
        const std::vector<const RTAggregateType*>& outer = holders[aggregate];
        fruitful.insert(fruitful.end(), outer.begin(), outer.end());
    }
    return fruitless;
}

/// The walk of an aggregate. Its output is that of the walk over every path on which no class comes
/// twice, and no struct twice without a class in between.
///
/// So that the cost grows with the output and not with the paths, the walk blocks aggregates as
/// Johnson's enumeration of elementary circuits blocks vertices (SIAM J. Comput. 4, 1975): one that
/// gave nothing is blocked, that is, passed by, until one of its parts has left the path and gave
/// something. Where a path through a struct ended at a struct around it, the block holds in this
/// segment alone, the path since its last class, for behind another class the walk goes on there.
/// Once the outermost struct of the segment is left and gave nothing, the block holds everywhere.
///
/// Blocks alone let n classes that lead back to one struct be passed by n times each. After much
/// effort, the aggregates from which no path at all leads to a range are found, and
/// the walk does not enter them again.
///
/// Nothing is allocated for an aggregate that holds no other one. Frames that an exception leaves
/// on the stack are the caller's.
class ConstraintWalk {
public:
    ConstraintWalk(Stack& stack, Ranges& out, std::size_t maxSteps)
        : m_stack(stack), m_out(out), m_maxSteps(maxSteps),
          m_maxEffort(maxSteps < ANY_NUMBER / EFFORT_PER_STEP - FREE_EFFORT
                          ? maxSteps * EFFORT_PER_STEP + FREE_EFFORT
                          : ANY_NUMBER) {}
    ConstraintWalk(const ConstraintWalk&) = delete;
    ConstraintWalk& operator=(const ConstraintWalk&) = delete;

    /// Takes the marks back that an exception left.
    ~ConstraintWalk() {
        while (m_step.aggregate != nullptr)
            comeBack();
    }

    /// Whether it came to its end.
    bool walk(const RTAggregateType& outermost) {
        enter(outermost, m_stack.depth());
        while (m_step.aggregate != nullptr && !isTooLong()) {
            if (m_effort > EFFORT_BEFORE_SEARCH && !m_hasSearched)
                endFruitless(outermost);
            advance();
        }
        return !isTooLong();
    }

private:
    static constexpr std::size_t ANY_NUMBER = std::numeric_limits<std::size_t>::max();

    /// So many outer steps are searched one by one; structs further in have entries of their own.
    static constexpr std::size_t SEARCHED_STEPS = 8;

    /// What it takes to look at members, one each, and to pass by one that is an aggregate.
    static constexpr std::size_t EFFORT_OF_PASSING_BY = 16;

    /// Before the aggregates that lead nowhere are searched for.
    static constexpr std::size_t EFFORT_BEFORE_SEARCH = 1000 * EFFORT_OF_PASSING_BY;

    /// What a walk of limited steps may take.
    static constexpr std::size_t EFFORT_PER_STEP = 32;
    static constexpr std::size_t FREE_EFFORT = 1 << 20;

    /// An aggregate on the path.
    struct Step {
        const RTAggregateType* aggregate = nullptr;
        bool isClass = false;
        bool isBaseNext = false; ///< The base class of a class is to be walked, then the members.
        std::size_t nextMember = 0;
        std::size_t depthBefore = 0; ///< Of the stack, before the frames on the way to it.
        std::size_t outputBefore = 0;
        std::size_t segment = 1;                    ///< Of its parts; a class begins one.
        const RTAggregateType* outermost = nullptr; ///< Struct of the segment; null for a class.
        bool hasEnded = false; ///< A path through it ended at a struct around it.
    };

    /// Where an aggregate is blocked: everywhere or, with an outermost struct, in its segment.
    struct Block {
        const RTAggregateType* outermost;
        std::size_t segment;
    };

    /// A walk of ranges given before it started counts them as well: only a fresh one has a limit.
    std::size_t stepsTaken() const { return m_out.size() + m_fruitfulVisits; }
    bool isTooLong() const { return stepsTaken() > m_maxSteps || m_effort > m_maxEffort; }

    bool isPassedBy(const RTAggregateType& aggregate);
    void enter(const RTAggregateType& aggregate, std::size_t depthBefore);
    bool isOnSegment(const RTAggregateType& structure) const;
    bool isBlockedEverywhere(const RTAggregateType* aggregate) const;
    void keepStep();
    bool isDeep() const { return m_outerSteps.size() >= SEARCHED_STEPS; }
    void endFruitless(const RTAggregateType& outermost);
    void advance();
    bool walkPart(const Ranges* memberRanges, const RTBaseType* type);
    void leave();
    void comeBack();
    void block(const Step& left);
    void unblock(const RTAggregateType& changed);

    Stack& m_stack;
    Ranges& m_out;
    std::set<const RTClassType*>& m_classesOnPath = classesOnPath();
    std::size_t m_maxSteps;
    std::size_t m_maxEffort;
    std::size_t m_effort = 0;
    bool m_hasSearched = false;       ///< For aggregates that give no ranges.
    std::size_t m_fruitfulVisits = 0; ///< Of aggregates that gave ranges.
    Step m_step;                      ///< The innermost one; of no aggregate once all is walked.
    std::vector<Step> m_outerSteps;   ///< Outermost first.
    std::size_t m_classesEntered = 1;
    std::set<std::pair<const RTAggregateType*, std::size_t>> m_deepStructs; ///< With segments.
    std::unordered_map<const RTAggregateType*, Block> m_blocked;
    /// What is unblocked with a part: those that hold it and were blocked since it gave something.
    std::unordered_map<const RTAggregateType*, AggregateSet> m_unblockedWith;
};

/// Makes an aggregate that is not passed by the innermost one.
void ConstraintWalk::enter(const RTAggregateType& aggregate, std::size_t depthBefore) {
    const bool isClass = aggregate.GetClassId() == ClassId::CLASS;
    keepStep();
    const bool isOutermost = m_step.outermost == nullptr;
    const RTAggregateType* const outermost = isOutermost ? &aggregate : m_step.outermost;
    m_step = {&aggregate, isClass, isClass, 0, depthBefore, m_out.size(), m_step.segment};
    if (isClass) {
        m_classesOnPath.insert(static_cast<const RTClassType*>(&aggregate));
        m_step.segment = ++m_classesEntered;
    } else {
        m_step.outermost = outermost;
    }
}

bool ConstraintWalk::isPassedBy(const RTAggregateType& aggregate) {
    const bool isClass = aggregate.GetClassId() == ClassId::CLASS;
    if (isClass && m_classesOnPath.count(static_cast<const RTClassType*>(&aggregate)) != 0)
        return true;
    if (!isClass && isOnSegment(aggregate)) {
        m_step.hasEnded = true;
        return true;
    }
    const auto blocked = m_blocked.find(&aggregate);
    if (blocked == m_blocked.end())
        return false;
    const Block& block = blocked->second;
    if (block.outermost == nullptr || isBlockedEverywhere(block.outermost))
        return true;
    const bool isHere = block.segment == m_step.segment;
    m_step.hasEnded = m_step.hasEnded || isHere;
    return isHere;
}

/// Whether the path holds the struct behind its last class.
bool ConstraintWalk::isOnSegment(const RTAggregateType& structure) const {
    const std::size_t segment = m_step.segment;
    const auto begin = m_outerSteps.begin();
    const auto end =
        begin + static_cast<std::ptrdiff_t>(std::min(m_outerSteps.size(), SEARCHED_STEPS));
    const auto isIt = [&](const Step& step) {
        return step.aggregate == &structure && step.segment == segment;
    };
    return &structure == m_step.aggregate || std::any_of(begin, end, isIt) ||
           (isDeep() && m_deepStructs.count({&structure, segment}) != 0);
}

bool ConstraintWalk::isBlockedEverywhere(const RTAggregateType* aggregate) const {
    const auto blocked = m_blocked.find(aggregate);
    return blocked != m_blocked.end() && blocked->second.outermost == nullptr;
}

/// Before another aggregate takes the place of the innermost one.
void ConstraintWalk::keepStep() {
    if (m_step.aggregate == nullptr)
        return;
    if (m_outerSteps.empty())
        m_outerSteps.reserve(SEARCHED_STEPS);
    if (isDeep() && !m_step.isClass)
        m_deepStructs.emplace(m_step.aggregate, m_step.segment);
    m_outerSteps.push_back(m_step);
}

/// Blocks the aggregates below the outermost one that give nothing on any path, and ends the visits
/// to them that go on. Nothing unblocks them, for no part of them gives anything.
void ConstraintWalk::endFruitless(const RTAggregateType& outermost) {
    m_hasSearched = true;
    const AggregateSet fruitless = fruitlessBelow(outermost);
    for (const RTAggregateType* aggregate : fruitless)
        m_blocked[aggregate] = Block{nullptr, 0};
    const auto end = [&fruitless](Step& step) {
        if (fruitless.count(step.aggregate) == 0)
            return;
        step.isBaseNext = false;
        step.nextMember = ANY_NUMBER;
    };
    std::for_each(m_outerSteps.begin(), m_outerSteps.end(), end);
    end(m_step);
}

/// Walks parts of the innermost aggregate until one is an aggregate itself. The base class comes
/// first and gets no frame of its own.
void ConstraintWalk::advance() {
    const RTAggregateType& aggregate = *m_step.aggregate;
    if (std::exchange(m_step.isBaseNext, false) &&
        walkPart(nullptr, static_cast<const RTClassType&>(aggregate).m_baseClass))
        return;
    const RTAggregateType::t_Member* const* const members = aggregate.m_members.data();
    const RTBaseType* const* const types = aggregate.m_memberTypes.data();
    const std::size_t count = std::min(aggregate.m_members.size(), aggregate.m_memberTypes.size());
    const std::size_t first = m_step.nextMember;
    std::size_t i = first;
    bool goesOn = false;
    for (; i < count && !goesOn; ++i) {
        if (members[i] == nullptr || types[i] == nullptr || isScalar(*types[i]))
            continue;
        m_step.nextMember = i + 1;
        goesOn = walkPart(&members[i]->m_constraints, types[i]);
    }
    m_effort += i - first;
    if (!goesOn)
        leave();
}

/// Whether the walk goes on below the part.
inline bool ConstraintWalk::walkPart(const Ranges* memberRanges, const RTBaseType* type) {
    const std::size_t depthBefore = m_stack.depth();
    UnpushedLevels unpushed(memberRanges, type, m_stack);
    const RTAggregateType* const below = goThrough(type, unpushed, m_stack, m_out);
    if (below != nullptr && !isPassedBy(*below)) {
        unpushed.pushBefore(below);
        enter(*below, depthBefore);
        return true;
    }
    m_effort += below != nullptr ? EFFORT_OF_PASSING_BY - 1 : 0;
    m_stack.popTo(depthBefore);
    return false;
}

void ConstraintWalk::leave() {
    const Step left = m_step;
    m_stack.popTo(left.depthBefore);
    const bool isFruitful = m_out.size() != left.outputBefore;
    m_fruitfulVisits += isFruitful ? 1 : 0;
    comeBack();
    if (m_step.aggregate == nullptr)
        return;
    if (isFruitful)
        unblock(*left.aggregate);
    else
        block(left);
}

/// Goes back to the aggregate around the innermost one. Allocates nothing, so that an exception can
/// be cleaned up after.
void ConstraintWalk::comeBack() {
    if (m_step.isClass)
        m_classesOnPath.erase(static_cast<const RTClassType*>(m_step.aggregate));
    if (m_outerSteps.empty()) {
        m_step.aggregate = nullptr;
        return;
    }
    m_step = m_outerSteps.back();
    m_outerSteps.pop_back();
    if (isDeep() && !m_step.isClass)
        m_deepStructs.erase({m_step.aggregate, m_step.segment});
}

/// After an aggregate was left that gave nothing.
void ConstraintWalk::block(const Step& left) {
    const RTAggregateType& aggregate = *left.aggregate;
    const bool holdsHere = left.hasEnded && !left.isClass && left.outermost != &aggregate;
    m_step.hasEnded = m_step.hasEnded || holdsHere;
    m_blocked[&aggregate] = {holdsHere ? left.outermost : nullptr, m_step.segment};
    forEachPart(aggregate, [&](const RTBaseType* part) {
        if (const RTAggregateType* const below = endOfWay(part))
            m_unblockedWith[below].insert(&aggregate);
    });
}

void ConstraintWalk::unblock(const RTAggregateType& changed) {
    if (m_blocked.empty())
        return;
    m_blocked.erase(&changed);
    std::vector<const RTAggregateType*> lifted{&changed};
    while (!lifted.empty()) {
        const auto followers = m_unblockedWith.extract(lifted.back());
        lifted.pop_back();
        if (!followers)
            continue;
        for (const RTAggregateType* follower : followers.mapped()) {
            if (m_blocked.erase(follower) != 0)
                lifted.push_back(follower);
        }
    }
}

/// Takes the frames of a walk off the stack again.
class FrameScope {
public:
    explicit FrameScope(Stack& stack) : m_stack(stack), m_depth(stack.depth()) {}
    FrameScope(const FrameScope&) = delete;
    FrameScope& operator=(const FrameScope&) = delete;
    ~FrameScope() { m_stack.popTo(m_depth); }

private:
    Stack& m_stack;
    std::size_t m_depth;
};

/// Apart from walkFrom, most calls of which need no room for it.
[[gnu::noinline]] bool walkAggregate(const RTAggregateType& type, Stack& stack, Ranges& out,
                                     std::size_t maxSteps) {
    return ConstraintWalk(stack, out, maxSteps).walk(type);
}

/// Whether the walk came to its end.
bool walkFrom(const RTBaseType& type, Stack& stack, Ranges& out,
              std::size_t maxSteps = std::numeric_limits<std::size_t>::max()) {
    const FrameScope frames(stack);
    UnpushedLevels unpushed(nullptr, &type, stack);
    const RTAggregateType* const aggregate = goThrough(&type, unpushed, stack, out);
    if (aggregate == nullptr)
        return true;
    unpushed.pushBefore(aggregate);
    return walkAggregate(*aggregate, stack, out, maxSteps);
}

} // namespace

void RTBaseType::populateTypeConstraints(Stack&, std::vector<FullConstraints>&) const {}

void RTArrayType::populateTypeConstraints(Stack& stack, Ranges& out) const {
    walkFrom(*this, stack, out);
}

void RTAggregateType::populateTypeConstraints(Stack& stack, Ranges& out) const {
    walkFrom(*this, stack, out);
}

void RTClassType::populateTypeConstraints(Stack& stack, Ranges& out) const {
    walkFrom(*this, stack, out);
}

void RTTypedefType::populateTypeConstraints(Stack& stack, Ranges& out) const {
    walkFrom(*this, stack, out);
}

void RTDiscreteEnumType::populateTypeConstraints(Stack& stack, Ranges& out) const {
    walkFrom(*this, stack, out);
}

PopulatedConstraints populateTypeConstraints(const RTBaseType& type, std::size_t maxSteps) {
    constexpr std::size_t USUAL_RANGES = 32;
    PopulatedConstraints populated;
    Stack stack;
    if (!isScalar(type))
        populated.ranges.reserve(std::min(maxSteps, USUAL_RANGES));
    populated.isComplete = walkFrom(type, stack, populated.ranges, maxSteps);
    if (populated.ranges.size() > maxSteps) {
        populated.ranges.resize(maxSteps);
        populated.isComplete = false;
    }
    return populated;
}

} // namespace RTTI
