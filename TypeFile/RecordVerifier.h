#pragma once

#include "TypeFile/FieldReader.h"
#include "TypeFile/FindingList.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeNodes.h"

#include <string>

namespace TypeFile {

/// Checks the bytes of one record after the other, and words what is wrong with their fields.
///
/// A record is scanned first, which only tells whether there is anything to say. Where there is, or
/// where the record is longer than a block, it is read field by field along the same layout. After
/// the first field that is not there or cannot be believed the rest of the record is passed over.
class RecordVerifier {
public:
    /// Records are read in the order of the storage through `sweep`, and once more through `jumps`.
    RecordVerifier(StorageWindow& sweep, StorageWindow& jumps, const TypeNodes& types,
                   FindingList& findings)
        : m_sweep(sweep), m_jumps(jumps), m_types(types), m_findings(findings) {}

    /// Checks the record of `size` bytes at the type's address, all of them in the storage, and
    /// gives its parts; a record that is not whole has none.
    void verify(unsigned int typeId, unsigned int size, unsigned int kind, RecordParts& record);

    // The rest is for records that were found whole, and reads them once more.

    /// Says of each part that leads to no object, or to none that it should, what is wrong.
    void addBrokenLinks(unsigned int typeId);

    /// Adds a finding at a part: at its type id, or where its ranges are counted. `place` is that
    /// of the part among those of the record.
    void addAtPart(FindingCode code, unsigned int typeId, std::size_t place, std::string text);
    void addAtRanges(FindingCode code, unsigned int typeId, std::size_t place, std::string text);

private:
    bool scan(unsigned int typeId, unsigned int size, unsigned int kind, RecordParts& record);
    void readFields(unsigned int size, unsigned int kind, RecordParts& record);
    void check(const ReadField& field);
    void checkCount(const ReadField& field);
    void checkTypeId(const ReadField& field);
    void checkDirection(const ReadField& field);
    void addMissing(const ReadField& field);
    void addBrokenLink(const ReadField& field);
    std::size_t smallestEntryBehind(const ReadField& count) const;
    template <typename Take> void readAgain(unsigned int typeId, Take take);
    void addAt(const FieldLayout* layout, FindingCode code, unsigned int typeId, std::size_t place,
               std::string text);
    template <typename Words> void add(FindingCode code, const ReadField& field, Words words);

    StorageWindow& m_sweep;
    StorageWindow& m_jumps;
    const TypeNodes& m_types;
    FindingList& m_findings;

    // The record that is read field by field.
    unsigned int m_typeId = 0;
    unsigned long long m_end = 0;
    std::span<const FieldLayout> m_body;
    bool m_isBelieved = true;
};

} // namespace TypeFile
