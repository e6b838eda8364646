#pragma once

#include "TypeFile/GroupFinder.h"
#include "TypeFile/PartVerifier.h"

#include <span>
#include <vector>

namespace TypeFile {

/// Checks the types whose references were kept, group by group of those that lead to one another:
/// that every reference which is followed while a record is read comes to an end, that no struct
/// contains itself, and that no record is opened again and again while it is read.
class GroupVerifier {
public:
    GroupVerifier(TypeNodes& types, PartVerifier& parts, RecordVerifier& records)
        : m_types(types), m_parts(parts), m_records(records), m_groups(types) {}

    void verify();

private:
    /// A type on a way down inside a group.
    struct Step {
        unsigned int typeId;
        unsigned int records; ///< So many structs are on the way, this type included.
        bool isDone;
        unsigned long long next;
    };

    using Group = std::span<const unsigned int>;

    bool isCycle(Group group) const;
    void verifyGroup(Group group);
    void verifyValues(Group group);
    void verifyReads(Group group);
    void measureChain(unsigned int typeId);
    void addSelfContained(const Step& step, const Reference& reference);
    void addEndless(const Step& step, const Reference& reference);
    void addReopened(unsigned int typeId);
    std::size_t placeOf(const Step& step) const {
        return static_cast<std::size_t>(step.next - 1 - m_types.nodes[step.typeId].firstReference);
    }

    template <typename Follows, typename Back, typename Leave>
    void goThrough(Group group, Follows follows, Back back, Leave leave);
    void enter(unsigned int typeId);

    TypeNodes& m_types;
    PartVerifier& m_parts;
    RecordVerifier& m_records;
    GroupFinder m_groups;
    bool m_isSound = true;     ///< Of the group: every way comes to an end.
    bool m_isReopened = false; ///< Of the group: that was said.

    // A way down inside a group.
    static constexpr unsigned int NEW = 0;
    static constexpr unsigned int LEFT = 0xFFFFFFFF;
    std::vector<unsigned int> m_places; ///< On the way, + 1; NEW before it was met.
    std::vector<Step> m_path;
};

} // namespace TypeFile
