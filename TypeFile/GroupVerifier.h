#pragma once

#include "TypeFile/GroupFinder.h"
#include "TypeFile/PartVerifier.h"

#include <span>
#include <vector>

namespace TypeFile {

/// Checks the deferred types, group by group of those that lead to one another: that every
/// reference which is followed while a record is read comes to an end, that no struct
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
        std::size_t next;
    };

    using Group = GroupFinder::Group;

    void verifyGroup(Group group);
    void verifyValues(Group group);
    void verifyReads(Group group);
    void countReopenings(unsigned int typeId);
    void addSelfContained(const Step& step, const Part& part);
    void addEndless(const Step& step, const Part& part);
    void addReopened(unsigned int typeId);
    std::size_t placeOf(const Step& step) const { return step.next - 1 - firstPartOf(step.typeId); }

    std::size_t firstPartOf(unsigned int typeId) const {
        return m_types.deferred[m_types.places[typeId]].firstPart;
    }
    unsigned int& depthOf(unsigned int typeId) { return m_depths[m_types.places[typeId]]; }
    unsigned char& reopeningsOf(unsigned int typeId) {
        return m_reopenings[m_types.places[typeId]];
    }

    template <typename Follows, typename Back, typename Leave>
    void goThrough(Group group, Follows follows, Back back, Leave leave);
    void enter(unsigned int typeId);

    TypeNodes& m_types;
    PartVerifier& m_parts;
    RecordVerifier& m_records;
    GroupFinder m_groups;
    /// Records that can lead back to a deferred type while it waits for others, up to a limit.
    std::vector<unsigned char> m_reopenings;
    bool m_isSound = true;     ///< Of the group: every way comes to an end.
    bool m_isReopened = false; ///< Of the group: that was said.

    // A way down inside a group.
    static constexpr unsigned int NEW = 0;
    static constexpr unsigned int LEFT = 0xFFFFFFFF;
    std::vector<unsigned int> m_depths; ///< On the way, from 1; NEW before a type is met.
    std::vector<Step> m_path;
};

} // namespace TypeFile
