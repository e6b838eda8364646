#include "TypeFile/TypeParts.h"

#include "RTTI/LittleEndian.h"

#include <algorithm>
#include <cstring>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr std::size_t WORD_SIZE = 4;
constexpr std::size_t DIRECTION_OFFSET = 8;

} // namespace

PartPosition TypeParts::begin(unsigned int typeId) const {
    const TypeFacts& type = m_types[typeId];
    PartPosition position;
    position.at = type.address + type.listAt;
    if (!type.isWhole || (!isAggregate(type.kind) && !isPassage(type.kind)))
        position.next = type.listCount + 1;
    position.hasBaseClass = type.isWhole && hasBaseClass(type);
    return position;
}

bool TypeParts::read(unsigned int typeId, PartPosition& position, Part& part) {
    const TypeFacts& type = m_types[typeId];
    if (position.hasBaseClass) {
        position.hasBaseClass = false;
        part = baseClass(type);
        return true;
    }
    if (isAggregate(type.kind)) {
        if (position.next >= type.listCount)
            return false;
        if (const Part* const members = keptMembers(type))
            part = members[position.next++];
        else
            readMember(type.kind == ClassId::CLASS, position, part);
        return true;
    }
    if (position.next != 0 || !isPassage(type.kind))
        return false;
    position.next = type.listCount + 1;
    part = onlyPart(type);
    return true;
}

void TypeParts::readMember(bool isClass, PartPosition& position, Part& part) {
    for (bool isInName = true; isInName;) {
        const char* bytes = m_window.at(position.at, 1);
        const auto left = static_cast<std::size_t>(m_window.end() - position.at);
        const void* zero = std::memchr(bytes, '\0', left);
        isInName = zero == nullptr;
        position.at += isInName ? left : static_cast<const char*>(zero) - bytes + 1;
    }
    part.index = position.next++;
    part.idAt = position.at;
    part.typeId = word(position.at);
    part.rangeCount = word(position.at + WORD_SIZE);
    part.rangesAt = position.at + 2 * WORD_SIZE;
    part.mayBeOpen = true;
    position.at = part.rangesAt +
                  part.rangeCount * static_cast<unsigned long long>(CONSTRAINT_SIZE) +
                  (isClass ? WORD_SIZE : 0);
}

unsigned int TypeParts::lookForBounds(const Part& part, unsigned int count) {
    unsigned int found = 0;
    for (unsigned long long i = 0; i < std::min(count, part.rangeCount); ++i) {
        const unsigned int direction = word(part.rangesAt + i * CONSTRAINT_SIZE + DIRECTION_OFFSET);
        found += static_cast<int>(direction) != UNCONSTRAINED_DIRECTION ? 1 : 0;
    }
    return found;
}

std::string TypeParts::fieldOf(unsigned int typeId, const Part& part) const {
    const unsigned int kind = m_types[typeId].kind;
    if (!isAggregate(kind) || part.index == BASE_CLASS)
        return referenceField(kind);
    return "member[" + std::to_string(part.index) + "].type id";
}

std::string TypeParts::rangesFieldOf(unsigned int typeId, const Part& part) const {
    return isAggregate(m_types[typeId].kind)
               ? "member[" + std::to_string(part.index) + "].constraint count"
               : "constraint count";
}

unsigned int TypeParts::word(unsigned long long offset) {
    return littleEndianAt<unsigned int>(m_window.at(offset, WORD_SIZE));
}

const char* referenceField(unsigned int kind) {
    switch (kind) {
    case ClassId::DISCRETE_ENUM: return "base type id";
    case ClassId::TYPEDEF: return "data type id";
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE: return "referenced type id";
    case ClassId::CLASS: return "base class type id";
    default: return "element type id";
    }
}

} // namespace TypeFile
