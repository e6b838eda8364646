#pragma once

#include "TypeFile/FindingList.h"
#include "TypeFile/RecordVerifier.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeNodes.h"
#include "TypeFile/WalkSteps.h"

namespace TypeFile {

/// Checks what a type is made of, once that is checked itself: that its references lead to objects,
/// and that lists of ranges are long enough for the dimensions that will consume them.
class PartVerifier {
public:
    PartVerifier(StorageWindow& sweep, StorageWindow& jumps, TypeNodes& types,
                 RecordVerifier& records, FindingList& findings, const WalkSteps& steps)
        : m_sweep(sweep), m_jumps(jumps), m_types(types), m_records(records), m_findings(findings),
          m_steps(steps) {}

    /// Settles a type whose record was just read, if all that it refers to is settled. Most types
    /// are: they mostly come behind those that they are made of. The references of the others are
    /// kept.
    void settle(unsigned int typeId, const RecordParts& record);

    /// Checks a type whose references were kept, when all records are read. Its parts by value must
    /// be checked, unless they lead back to it.
    void checkKept(unsigned int typeId);

    /// Settles a type that was checked in this way and is part of no group, if all that it refers
    /// to is settled.
    void settleKept(unsigned int typeId);

private:
    void keep(unsigned int typeId, const RecordParts& record);
    void check(unsigned int typeId, const RecordParts& record, StorageWindow& window);
    unsigned int openRanges(unsigned int typeId, std::size_t place, const Part& part,
                            unsigned int askedBelow, StorageWindow& window);
    unsigned int askedBelow(unsigned int target, unsigned char link) const {
        const bool asks = m_types.isByValue(target, link) && m_types.states[target].hasFacts;
        return asks ? m_types.nodes[target].open : 0;
    }

    StorageWindow& m_sweep;
    StorageWindow& m_jumps;
    TypeNodes& m_types;
    RecordVerifier& m_records;
    FindingList& m_findings;
    const WalkSteps& m_steps;
    RecordParts m_kept; ///< Parts of a record that was read once more.
};

} // namespace TypeFile
