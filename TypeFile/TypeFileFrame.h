#pragma once

#include "OVAT/IBlockManager.h"

#include <string>
#include <vector>

namespace TypeFile {

/// The first two fields of a record, and the room that the storage has for it.
struct RecordFrame {
    unsigned long long address = 0; ///< Where the record begins in the storage.
    unsigned long long room = 0;    ///< Bytes from there to the end of the storage.
    int claimedSize = 0;            ///< Bytes that the record says it takes; 0 where that is cut.
    unsigned int kind = 0;          ///< Its kind code; 0 where that is cut.

    /// Whether size and kind are in the storage.
    bool hasHead() const;

    /// Whether the record claims a size that it can have, and is in the storage up to its end.
    bool isWhole() const;

    /// Bytes that the record takes of the storage: as many as it claims, but no fewer than size and
    /// kind take, and none that are not there.
    unsigned long long size() const;
};

/// Header and address table of a type file: how many types there are, and where their records lie.
/// The header is read by the constructor, all else when it is asked for.
///
/// No contents are refused, and nothing outside the storage is read; the questions that begin with
/// "has" and "is" tell what can be relied on. What the storage throws passes through. The storage
/// is the caller's, and is used as long as the frame is asked for addresses and records.
class TypeFileFrame {
public:
    /// Of the type file whose header lies at `baseOffset` of a storage of `storageSize` bytes.
    TypeFileFrame(OVAT::IBlockManager& storage, unsigned long long storageSize,
                  unsigned long long baseOffset = 0);

    /// Whether the header is in the storage. If not, there are no types and no version.
    bool hasHeader() const { return m_hasHeader; }

    /// The version: at most 32 bytes, up to the first zero byte.
    const std::string& version() const { return m_version; }

    /// Whether the version is printable text that has an end. Other bytes than a type file have
    /// none.
    bool hasVersionText() const { return m_hasVersionText; }

    /// Whether the writer marked the file as one that holds no usable types.
    bool isMarkedUnusable() const;

    /// The number of types that the header gives. The ids are those from 0 on.
    unsigned int typeCount() const { return m_typeCount; }

    /// Where the header lies in the storage.
    unsigned long long baseOffset() const { return m_baseOffset; }

    /// Where the address table begins in the storage, if there are types.
    unsigned int tableOffset() const { return m_tableOffset; }

    /// Bytes that the addresses of all types take.
    unsigned long long tableSize() const;

    /// Whether the address table is in the storage up to its end.
    bool hasTable() const { return entryCount() == m_typeCount; }

    /// The number of types whose addresses are in the storage: the first ones.
    unsigned int entryCount() const;

    /// Where the address of a type stands in the storage.
    unsigned long long entryOffset(unsigned int typeId) const;

    /// Where the record of a type begins, by the address table. Reads 8 bytes; throws
    /// std::out_of_range for a type whose address is not in the storage.
    unsigned long long addressOf(unsigned int typeId) const;

    /// The addresses of the first `entryCount()` types, by id. Takes one read.
    std::vector<unsigned long long> addresses() const;

    /// Size and kind of the record at an address, which may be anything. Takes one read.
    RecordFrame recordAt(unsigned long long address) const;

private:
    OVAT::IBlockManager& m_storage;
    unsigned long long m_storageSize;
    unsigned long long m_baseOffset;
    bool m_hasHeader = false;
    bool m_hasVersionText = false;
    std::string m_version;
    unsigned int m_typeCount = 0;
    unsigned int m_tableOffset = 0;
};

} // namespace TypeFile
