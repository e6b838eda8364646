#pragma once

#include "TypeFile/FindingList.h"
#include "TypeFile/TypeNodes.h"

#include <algorithm>

namespace TypeFile {

/// The steps of a constraint walk while its parts are added up.
struct WalkSum {
    unsigned long long steps = 0; ///< To begin with, the dimensions of the type itself.
    bool isBound = false;         ///< They are at most so many, and maybe fewer.
};

/// Adds up the steps of constraint walks: a step is a range given, or a visit of a struct or class
/// that gave some. They do not depend on how a walk is made, only on the types.
class WalkSteps {
public:
    explicit WalkSteps(unsigned int limit) : m_limit(std::min(limit, ~0U - 1)) {}

    /// Adds those of a part, if the walk goes through it.
    void add(WalkSum& sum, const TypeNodes& types, unsigned int target, unsigned char link) const {
        if (!Link::has(link, Link::WALKED) || target >= types.size())
            return;
        const TypeCounts& counts = types.counts[target];
        sum.steps += counts.steps;
        sum.isBound = sum.isBound || (types.states[target].isBound && counts.any());
    }

    /// The sum, with the visit itself where the type is a struct or class: at most `tooMany()`.
    unsigned int end(const WalkSum& sum, Role role) const {
        const bool isVisit = role >= Role::RECORD && sum.steps != 0;
        return clamped(sum.steps + (isVisit ? 1 : 0));
    }

    /// One step more than the limit: as far as anybody counts.
    unsigned int tooMany() const { return m_limit + 1; }
    bool isTooMany(unsigned long long steps) const { return steps > m_limit; }
    unsigned int clamped(unsigned long long steps) const {
        return static_cast<unsigned int>(std::min<unsigned long long>(steps, tooMany()));
    }

    /// Reports a type whose walk takes more steps than the limit.
    void report(unsigned int typeId, const TypeNodes& types, FindingList& findings) const {
        if (isTooMany(types.counts[typeId].steps))
            addTooMany(typeId, types, findings);
    }

private:
    [[gnu::cold]] void addTooMany(unsigned int typeId, const TypeNodes& types,
                                  FindingList& findings) const {
        findings.add(FindingCode::WALK_TOO_LARGE, typeId, "record", types.addresses[typeId],
                     "To flatten the constraints of this type takes more than " +
                         std::to_string(m_limit) + " steps.");
    }

    unsigned int m_limit;
};

} // namespace TypeFile
