#pragma once

#include "OVAT/IBlockManager.h"
#include "TypeFile/RecordFrame.h"

#include <string>
#include <vector>

namespace TypeFile {

/// The header and the address table of a type file: how many types there are, and where their
/// records are. The constructor reads the header, the other functions read what they need.
///
/// No contents are refused, and nothing outside the storage is read; the functions that begin with
/// "has" and "is" tell what can be relied on. Exceptions of the storage pass through. The storage
/// belongs to the caller and must exist as long as the frame is asked for addresses and records.
class TypeFileFrame {
public:
    /// Reads the header at `baseOffset` in a storage of `storageSize` bytes.
    TypeFileFrame(OVAT::IBlockManager& storage, unsigned long long storageSize,
                  unsigned long long baseOffset = 0);

    /// Whether the header lies within the storage. If not, there are no types and no version.
    bool hasHeader() const { return m_hasHeader; }

    /// The version text: at most 32 bytes, up to the first zero byte.
    const std::string& version() const { return m_version; }

    /// Whether the version is printable text with a terminating zero byte. If not, this is hardly a
    /// type file.
    bool hasVersionText() const { return m_hasVersionText; }

    /// Whether the file is marked as one without usable types.
    bool isMarkedUnusable() const;

    /// Why no types can be loaded, as a clause; empty if they can. Says nothing of single records.
    std::string reasonUnusable() const;

    /// The number of types according to the header. Type ids count from 0.
    unsigned int typeCount() const { return m_typeCount; }

    /// The storage offset of the header.
    unsigned long long baseOffset() const { return m_baseOffset; }

    /// The storage offset of the address table, if there are types.
    unsigned int tableOffset() const { return m_tableOffset; }

    /// The size of the address table in bytes.
    unsigned long long tableSize() const;

    /// Whether the whole address table lies within the storage.
    bool hasTable() const { return entryCount() == m_typeCount; }

    /// The number of table entries within the storage; they are those of the lowest ids.
    unsigned int entryCount() const;

    /// The storage offset of a type's table entry.
    unsigned long long entryOffset(unsigned int typeId) const;

    /// The storage offset of a type's record, as the address table gives it. Reads 8 bytes; throws
    /// std::out_of_range if the type has no table entry within the storage.
    unsigned long long addressOf(unsigned int typeId) const;

    /// The addresses of the first `entryCount()` types, in the order of their ids. One read.
    std::vector<unsigned long long> addresses() const;

    /// The size and kind of the record at an address, which may be any number. One read.
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
