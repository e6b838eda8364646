#pragma once

#include "TypeFile/FindingList.h"
#include "TypeFile/RecordVerifier.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeNodes.h"
#include "TypeFile/WalkSteps.h"

namespace TypeFile {

/// Checks what a type is made of, once its record is checked: that its references lead to objects,
/// and that lists of ranges are long enough for the dimensions that will consume them.
///
/// A type is finished when this is done for it and for all below it.
class PartVerifier {
public:
    PartVerifier(StorageWindow& jumps, TypeNodes& types, RecordVerifier& records,
                 FindingList& findings, const WalkSteps& steps)
        : m_jumps(jumps), m_types(types), m_records(records), m_findings(findings), m_steps(steps) {
    }

    /// Finishes a type whose record was just read, if all that it refers to is finished. Most types
    /// are: they mostly come behind those that they are made of. The others are deferred, with
    /// their parts.
    void verify(unsigned int typeId, const PartsOfType& type);

    /// Checks a deferred type, when all records are read and its parts by value are checked, unless
    /// they lead back to it.
    void checkDeferred(unsigned int typeId);

    /// Checks a deferred type which does not lead back to itself, and finishes it if all that it
    /// refers to is finished.
    void verifyDeferred(unsigned int typeId);

private:
    /// What the parts of a type come to, as far as they are known.
    struct PartSum {
        unsigned long long steps; ///< Of the walk, with the dimensions of the type itself.
        unsigned int asked;       ///< Not 0 if any asks ranges of the levels around it.
        bool isFinished;          ///< All of them are.
        bool isBroken;            ///< Some lead to no object, or to none that they should.
    };

    PartSum sumOf(const PartsOfType& type) const;
    bool hasWrongBase(const PartsOfType& type) const;
    unsigned int askedBy(const Part& part) const;
    void finish(unsigned int typeId, const PartsOfType& type, const PartSum& sum);
    void defer(unsigned int typeId, const PartsOfType& type);
    void check(unsigned int typeId, const PartsOfType& type, const PartSum& sum);
    unsigned int openRanges(unsigned int typeId, const PartsOfType& type);
    void addBrokenParts(unsigned int typeId, const PartsOfType& type);
    unsigned int openRanges(unsigned int typeId, const PartsOfType& type, std::size_t place,
                            unsigned int askedBelow);
    [[gnu::cold]] void addShort(unsigned int typeId, std::size_t place, unsigned int found,
                                unsigned int asked);
    unsigned int rangesWithBounds(const LongList& list, unsigned int count);

    StorageWindow& m_jumps;
    TypeNodes& m_types;
    RecordVerifier& m_records;
    FindingList& m_findings;
    const WalkSteps& m_steps;
};

} // namespace TypeFile
