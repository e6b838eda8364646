#pragma once

#include "TypeFile/FindingList.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeParts.h"

#include <vector>

namespace TypeFile {

/// What the constraint walk costs at a type. Steps: types entered, ranges pushed and given.
struct WalkCost {
    unsigned int steps = 0;     ///< At most one more than the limit.
    bool givesRanges = false;   ///< Else an aggregate is passed by from the second time on.
    bool entersClasses = false; ///< Then the steps depend on the path to the type.
};

/// Adds without going past one more than the limit.
inline unsigned int addSteps(unsigned int steps, unsigned long long more, unsigned int limit) {
    const unsigned long long sum = steps + more;
    return sum > limit ? limit + 1 : static_cast<unsigned int>(sum);
}

/// The steps at a type itself, without those of its parts: one for each dimension of an array.
inline unsigned int ownSteps(const TypeFacts& type) {
    return type.isWhole && type.kind == RTTI::ClassId::ARRAY ? type.second : 0;
}

/// The steps of one part: what its type costs, and what lies in between.
inline unsigned long long partSteps(const Part& part, const WalkCost& cost) {
    return 1ULL + part.rangeCount + cost.steps;
}

/// Once all parts are in: an aggregate that gives nothing is passed by.
void closeCost(const TypeFacts& type, WalkCost& cost);

void addWalkTooLarge(const TypeFacts& type, unsigned int typeId, FindingList& findings,
                     unsigned long long steps);

/// Checks what types hold by value, which is what the constraint walk goes through: that members
/// lead to objects, that no struct contains itself, that constraint lists are long enough for the
/// dimensions that will consume them, and that the walk stays within its limit.
///
/// A class is held by reference and ends the way down here; WalksThroughClasses goes on. It is
/// taken to ask no range of the levels around it.
class WalkVerifier {
public:
    WalkVerifier(const TypeTable& types, TypeParts& parts, FindingList& findings,
                 const VerifyLimits& limits)
        : m_types(types), m_parts(parts), m_findings(findings), m_limits(limits) {}

    /// Makes room once the type count is known.
    void begin();

    /// Checks a type whose record was just read, if all of its parts are checked. Most are, since a
    /// type mostly comes behind those that it is made of. Whether nobody will ask for its parts
    /// again.
    bool settle(unsigned int typeId);

    /// Checks the types that are left, when all records are read. Whether no type contains itself
    /// by value.
    bool verify();

    /// The cost of every type's walk as far as it enters no class.
    std::vector<WalkCost>& costs() { return m_costs; }

private:
    enum class Progress : unsigned char { NEW, OPEN, DONE };

    struct State {
        unsigned int open = 0;  ///< Ranges that the type asks of the levels around it.
        unsigned int place = 0; ///< On the path, while the type is open.
        Progress progress = Progress::NEW;
    };

    /// What the parts of a type come to, as far as they were accounted.
    struct Sum {
        WalkCost cost;
        unsigned int open = 0;
        bool passedBelow = false; ///< A part alone passes the limit of the walk.
    };

    /// A type on the way down, with the part that the way goes on through.
    struct Step {
        unsigned int typeId;
        unsigned int lastRecord; ///< Place of the last record on the path, itself included, + 1.
        PartPosition position;
        Part part;
        bool isBelow;
        Sum sum;
    };

    bool isSettled(unsigned int typeId) const;
    void verifyFrom(unsigned int typeId);
    void enter(unsigned int typeId);
    void advance();
    void meet(Step& step);
    bool isSound(unsigned int typeId, const Part& part);
    void account(unsigned int typeId, const Part& part, Sum& sum);
    unsigned int openRanges(unsigned int typeId, const Part& part, unsigned int askedBelow);
    void close(unsigned int typeId, const Sum& sum);
    void addSelfContained(const Step& step);

    const TypeTable& m_types;
    TypeParts& m_parts;
    FindingList& m_findings;
    const VerifyLimits& m_limits;
    std::vector<State> m_states;
    std::vector<WalkCost> m_costs;
    std::vector<Step> m_path;
    bool m_isFinite = true;
};

} // namespace TypeFile
