#pragma once

#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFacts.h"

#include <string>

namespace TypeFile {

/// A type that the constraint walk meets right below another one, with the constraints in between.
struct Part {
    unsigned int typeId;
    unsigned int index;      ///< Of the member; BASE_CLASS, or 0 where there is one part alone.
    unsigned long long idAt; ///< Offset of the type id in the storage.
    unsigned long long rangesAt;
    unsigned int rangeCount;
    bool mayBeOpen; ///< Else every range is known to have bounds.
};

inline constexpr unsigned int BASE_CLASS = 0xFFFFFFFF;

/// How far the parts of a type have been read.
struct PartPosition {
    unsigned long long at = 0;
    unsigned int next = 0;
    bool hasBaseClass = false; ///< To come, before the members.
};

/// Reads the parts of types again, from records that were found whole. That takes a second look at
/// the storage, so that no member needs memory: there can be far more members than types.
class TypeParts {
public:
    TypeParts(StorageWindow& window, const TypeTable& types) : m_window(window), m_types(types) {}

    /// Before the first part of a type; a type that refers to nothing, or was not read, has none.
    PartPosition begin(unsigned int typeId) const;

    /// The part at the position, which moves past it; false at the end.
    bool read(unsigned int typeId, PartPosition& position, Part& part);

    /// How many of the first `count` ranges of a part have bounds of their own.
    unsigned int rangesWithBounds(const Part& part, unsigned int count);

    /// The field that holds the part's type id, in the words of the format.
    std::string fieldOf(unsigned int typeId, const Part& part) const;

    /// The field right before the part's ranges.
    std::string rangesFieldOf(unsigned int typeId, const Part& part) const;

private:
    void readMember(bool isClass, PartPosition& position, Part& part);
    unsigned int word(unsigned long long offset);

    StorageWindow& m_window;
    const TypeTable& m_types;
};

/// The field of a kind that holds the id of the one type it refers to.
const char* referenceField(unsigned int kind);

} // namespace TypeFile
