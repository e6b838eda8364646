#pragma once

#include "RTTI/TypeFileFormat.h"

#include <algorithm>

namespace TypeFile {

/// The first two fields of a record, and the space that the storage has for it.
struct RecordFrame {
    unsigned long long address = 0; ///< Where the record begins in the storage.
    unsigned long long room = 0;    ///< Bytes from the address to the end of the storage.
    int claimedSize = 0;            ///< The size field of the record; 0 if cut off.
    unsigned int kind = 0;          ///< Its kind code; 0 if cut off.

    /// Whether size and kind lie within the storage.
    bool hasHead() const { return room >= RTTI::TypeFileFormat::RECORD_HEADER_SIZE; }

    /// Whether the size field is possible and the whole record lies within the storage.
    bool isWhole() const {
        return claimedSize >= static_cast<int>(RTTI::TypeFileFormat::RECORD_HEADER_SIZE) &&
               static_cast<unsigned int>(claimedSize) <= room;
    }

    /// The bytes that the record takes: as many as its size field says, but at least those of size
    /// and kind, whether or not the storage has them.
    unsigned long long claimedBytes() const {
        return static_cast<unsigned int>(
            std::max(claimedSize, static_cast<int>(RTTI::TypeFileFormat::RECORD_HEADER_SIZE)));
    }

    /// How many of these bytes lie within the storage.
    unsigned long long size() const { return std::min(room, claimedBytes()); }
};

} // namespace TypeFile
