#pragma once

#include "TypeFile/FindingList.h"
#include "TypeFile/TypeFacts.h"
#include "TypeFile/TypeFileVerifier.h"

#include <string>
#include <vector>

namespace TypeFile {

/// Whether a link to this type id leads to an object.
inline bool isLinked(const TypeTable& types, unsigned int target) {
    return target < types.size() && types.roles[target] != Role::NO_TYPE;
}

/// Reports a link that `isLinked` turns down. `field` and `offset` are those of the type id.
void addBrokenLink(const TypeTable& types, FindingList& findings, unsigned int typeId,
                   unsigned int target, const std::string& field, unsigned long long offset);

/// Checks the references that a record has besides its members: that they lead to an object, and
/// that those which are followed while the record is read come to an end, within the nesting limit.
class ReferenceVerifier {
public:
    ReferenceVerifier(const TypeTable& types, FindingList& findings, const VerifyLimits& limits)
        : m_types(types), m_findings(findings), m_limits(limits) {}

    /// Makes room once the type count is known.
    void begin();

    /// Checks the references of a record that was just read, if what they lead to is checked.
    void settle(unsigned int typeId);

    /// Checks the references that are left, when all records are read. Whether every reference
    /// comes to an end.
    bool verify();

private:
    /// A record on the way, and how many of its references were followed.
    struct Step {
        unsigned int typeId;
        unsigned int followed;
    };

    bool isSettled(unsigned int target) const {
        return target >= m_types.size() || m_depths[target] != 0;
    }
    void checkLinks(unsigned int typeId);
    void measureFrom(unsigned int typeId);
    void follow(Step& step);
    void goBehind(unsigned int typeId, unsigned int target);
    void close(unsigned int typeId);
    unsigned int target(const Step& step) const;

    const TypeTable& m_types;
    FindingList& m_findings;
    const VerifyLimits& m_limits;
    std::vector<unsigned int> m_depths; ///< Records open at once; while one is open, so far.
    std::vector<bool> m_isOpen;
    std::vector<Step> m_path;
    bool m_allEnd = true;
};

} // namespace TypeFile
