#pragma once

#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFacts.h"

#include <algorithm>
#include <string>

namespace TypeFile {

/// How far the parts of a type have been read.
struct PartPosition {
    unsigned long long at = 0;
    unsigned int next = 0;
    bool hasBaseClass = false; ///< To come, before the members.
};

/// Gives the parts of types whose records were found whole. Members that were not kept take a
/// second look at the storage: there can be far more members than types, and memory must not grow
/// with them.
class TypeParts {
public:
    TypeParts(StorageWindow& window, const TypeTable& types) : m_window(window), m_types(types) {}

    /// Whether the parts are known without a look at the storage.
    bool areAtHand(unsigned int typeId) const {
        const TypeFacts& type = m_types[typeId];
        return !isAggregate(type.kind) || type.listCount == 0 || type.second != 0;
    }

    /// Whether all parts, which must be at hand, are what `is` asks for.
    template <typename Is> bool allOf(unsigned int typeId, Is is) const {
        const TypeFacts& type = m_types[typeId];
        if (!type.isWhole)
            return true;
        if (!isAggregate(type.kind))
            return !isPassage(type.kind) || is(onlyPart(type));
        if (hasBaseClass(type) && !is(baseClass(type)))
            return false;
        const Part* const members = keptMembers(type);
        return std::all_of(members, members + type.listCount, is);
    }

    /// Before the first part of a type; a type that refers to nothing, or was not read, has none.
    PartPosition begin(unsigned int typeId) const;

    /// The part at the position, which moves past it; false at the end.
    bool read(unsigned int typeId, PartPosition& position, Part& part);

    /// How many of the first `count` ranges of a part have bounds of their own.
    unsigned int rangesWithBounds(const Part& part, unsigned int count) {
        return part.mayBeOpen ? lookForBounds(part, count) : std::min(count, part.rangeCount);
    }

    /// The field that holds the part's type id, in the words of the format.
    std::string fieldOf(unsigned int typeId, const Part& part) const;

    /// The field right before the part's ranges.
    std::string rangesFieldOf(unsigned int typeId, const Part& part) const;

private:
    static bool hasBaseClass(const TypeFacts& type) {
        return type.kind == RTTI::ClassId::CLASS &&
               type.reference != RTTI::TypeFileFormat::NO_TYPE_ID;
    }
    static Part baseClass(const TypeFacts& type) {
        return {type.reference, BASE_CLASS, type.address + type.referenceAt, 0, 0, false};
    }
    static Part onlyPart(const TypeFacts& type) {
        return {type.reference,
                0,
                type.address + type.referenceAt,
                type.address + type.listAt,
                type.listCount,
                type.hasOpenRange != 0};
    }
    /// Null where they are not kept.
    const Part* keptMembers(const TypeFacts& type) const {
        return type.second == 0 ? nullptr : &m_types.members[type.second - 1];
    }
    void readMember(bool isClass, PartPosition& position, Part& part);
    unsigned int lookForBounds(const Part& part, unsigned int count);
    unsigned int word(unsigned long long offset);

    StorageWindow& m_window;
    const TypeTable& m_types;
};

/// The field of a kind that holds the id of the one type it refers to.
const char* referenceField(unsigned int kind);

} // namespace TypeFile
