#include "TypeFile/RecordVerifier.h"

#include "RTTI/LittleEndian.h"
#include "RTTI/RTBaseType.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr std::size_t WORD_SIZE = 4;
constexpr std::size_t UNIT_VALUE_SIZE = 8;
constexpr std::size_t BOUND_SIZE = 8;
constexpr std::size_t DIRECTION_OFFSET = 8; ///< In a constraint.

/// The least that an entry of a list takes: an empty name and the fields after it.
constexpr std::size_t SMALLEST_NAME = 1;
constexpr std::size_t SMALLEST_UNIT = SMALLEST_NAME + UNIT_VALUE_SIZE;
constexpr std::size_t SMALLEST_MEMBER = SMALLEST_NAME + 2 * WORD_SIZE;
constexpr std::size_t SMALLEST_CLASS_MEMBER = SMALLEST_MEMBER + WORD_SIZE;

} // namespace

void RecordVerifier::verify(unsigned int typeId, unsigned int size) {
    TypeFacts& facts = m_types.facts[typeId];
    m_typeId = typeId;
    m_facts = &facts;
    const std::size_t keptBefore = m_types.members.size();
    m_at = facts.address + RECORD_HEADER_SIZE;
    m_end = facts.address + size;
    m_isWhole = true;
    endOfItems();
    name("name");
    word("flags");
    body(facts.kind);
    if (m_isWhole && m_at != m_end)
        add(FindingCode::LEFTOVER_BYTES, "record size", facts.address,
            "The last field ends " + std::to_string(m_end - m_at) + " bytes before the record.");
    facts.isWhole = m_isWhole;
    if (isAggregate(facts.kind))
        keepMembers(keptBefore);
}

/// All of them, or none where the record is not whole or there was no room.
void RecordVerifier::keepMembers(std::size_t first) {
    if (!m_isWhole || m_types.members.size() - first != m_facts->listCount)
        m_types.members.resize(first);
    else if (m_facts->listCount != 0)
        m_facts->second = static_cast<unsigned int>(first) + 1;
}

void RecordVerifier::body(unsigned int kind) {
    switch (kind) {
    case ClassId::SEQ_ENUM: return seqEnum();
    case ClassId::DISCRETE_ENUM: return discreteEnum();
    case ClassId::INT: return skip("constraint", CONSTRAINT_SIZE);
    case ClassId::FLOAT: return real();
    case ClassId::EVENT: return flavour("event kind", LAST_EVENT_KIND);
    case ClassId::PHYSICAL: return physical();
    case ClassId::ARRAY: return array();
    case ClassId::RECORD: return record();
    case ClassId::CLASS: return classBody();
    case ClassId::TYPEDEF:
        reference("data type id");
        ownConstraints();
        return;
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE:
        reference("referenced type id");
        word("alignment");
        word("value size");
        return;
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
        reference("element type id");
        word("SV type id");
        return;
    case ClassId::ASSOC_ARRAY:
        reference("element type id");
        word("SV type id");
        m_facts->second = word("index type id");
        return;
    default: return;
    }
}

void RecordVerifier::seqEnum() {
    const int encoding = number("encoding");
    expect(encoding >= ENCODING_4_STATE && encoding <= ENCODING_UNPADDED_BYTE,
           FindingCode::ENCODING_UNKNOWN, "encoding", encoding, "one of 0 to 3");
    const int kind = number("enum kind");
    expect(kind >= INVALID_ENUM && kind <= VHDL_OTHER_ENUM, FindingCode::ENUM_KIND_UNKNOWN,
           "enum kind", kind, "one of 0 to 5");
    const unsigned int enumerators = count("enumerator count", SMALLEST_NAME);
    for (unsigned int i = 0; i < enumerators && m_isWhole; ++i) {
        item("enumerator", i);
        name("name");
    }
    endOfItems();
    const int size = number("enumerator size");
    expect(size >= 0, FindingCode::SIZE_NEGATIVE, "enumerator size", size, "a number of bytes");
}

void RecordVerifier::discreteEnum() {
    reference("base type id");
    const unsigned int enumerators = count("enumerator count", SMALLEST_NAME);
    const int size = number("enumerator size");
    expect(size >= 0, FindingCode::SIZE_NEGATIVE, "enumerator size", size, "a number of bytes");
    const auto valueSize = static_cast<std::size_t>(std::max(size, 0));
    for (unsigned int i = 0; i < enumerators && m_isWhole; ++i) {
        item("enumerator", i);
        name("name");
        skip("value", valueSize);
    }
    endOfItems();
    ownConstraints();
}

void RecordVerifier::real() {
    flavour("real kind", LAST_FLOAT_KIND);
    skip("left bound", BOUND_SIZE);
    skip("right bound", BOUND_SIZE);
    skip("direction", BOUND_SIZE);
    if (!m_isWhole)
        return;
    const double direction = littleEndianAt<double>(m_window.at(m_at - BOUND_SIZE, BOUND_SIZE));
    const double truncated = std::trunc(direction);
    if (!(truncated >= std::numeric_limits<int>::min() &&
          truncated <= std::numeric_limits<int>::max()))
        add(FindingCode::REAL_DIRECTION_UNUSABLE, "direction", m_at - BOUND_SIZE,
            "The direction " + std::to_string(direction) + " is no 32-bit number.");
}

void RecordVerifier::physical() {
    const unsigned int units = count("unit count", SMALLEST_UNIT);
    for (unsigned int i = 0; i < units && m_isWhole; ++i) {
        item("unit", i);
        name("name");
        skip("value", UNIT_VALUE_SIZE);
    }
}

void RecordVerifier::array() {
    const unsigned int kind = word("array kind");
    expect(kind >= ARRAY_KIND_INVALID && kind <= BYTE_UNPADDED_ARRAY,
           FindingCode::ARRAY_KIND_UNKNOWN, "array kind", kind, "one of 10485760 to 10485767");
    reference("element type id");
    const unsigned int dimensions = count("dimension count", WORD_SIZE);
    for (unsigned int i = 0; i < dimensions && m_isWhole; ++i) {
        item("dimension", i);
        const unsigned int id = word("index type id");
        if (id >= m_types.size() && id != NO_TYPE_ID)
            expect(false, FindingCode::INDEX_TYPE_ID_OUTSIDE_TABLE, "index type id", id,
                   "the id of a type of this file");
    }
    endOfItems();
    m_facts->second = dimensions;
    ownConstraints();
    word("SV type id");
}

void RecordVerifier::record() {
    const unsigned int kind = word("record kind");
    expect(kind >= RECORD_KIND_INVALID && kind <= BYTE_UNPADDED_STRUCT,
           FindingCode::RECORD_KIND_UNKNOWN, "record kind", kind, "one of 720896 to 720904");
    const unsigned int members = count("member count", SMALLEST_MEMBER);
    m_facts->listAt = relative(m_at);
    for (unsigned int i = 0; i < members && m_isWhole; ++i)
        member(i);
    endOfItems();
    m_facts->listCount = members;
    word("SV type id");
}

void RecordVerifier::classBody() {
    reference("base class type id");
    word("SV type id");
    const unsigned int members = count("member count", SMALLEST_CLASS_MEMBER);
    m_facts->listAt = relative(m_at);
    for (unsigned int i = 0; i < members && m_isWhole; ++i) {
        member(i);
        word("flag");
    }
    endOfItems();
    m_facts->listCount = members;
}

/// Where its type id leads is looked at when all kinds are known.
void RecordVerifier::member(unsigned int index) {
    item("member", index);
    name("name");
    Part part;
    part.index = index;
    part.idAt = m_at;
    part.typeId = word("type id");
    part.rangesAt = m_at + WORD_SIZE;
    part.mayBeOpen = constraints(part.rangeCount);
    if (m_types.hasRoomForMember())
        m_types.members.push_back(part);
}

unsigned int RecordVerifier::word(const char* field) {
    if (!m_isWhole)
        return 0;
    if (m_end - m_at < WORD_SIZE) {
        isMissing(field, WORD_SIZE);
        return 0;
    }
    const auto value = littleEndianAt<unsigned int>(m_window.at(m_at, WORD_SIZE));
    m_at += WORD_SIZE;
    return value;
}

void RecordVerifier::name(const char* field) {
    const unsigned long long begin = m_at;
    while (m_isWhole && m_at != m_end) {
        const char* bytes = m_window.at(m_at, 1);
        const auto left = static_cast<std::size_t>(std::min(m_end, m_window.end()) - m_at);
        const void* zero = std::memchr(bytes, '\0', left);
        if (zero != nullptr) {
            m_at += static_cast<std::size_t>(static_cast<const char*>(zero) - bytes) + 1;
            return;
        }
        m_at += left;
    }
    if (!m_isWhole)
        return;
    m_isWhole = false;
    add(FindingCode::NAME_NOT_TERMINATED, field, begin,
        "There is no zero byte up to the end of the record, " + std::to_string(m_end - begin) +
            " bytes on.");
}

void RecordVerifier::skip(const char* field, std::size_t width) {
    if (!m_isWhole)
        return;
    if (m_end - m_at < width)
        isMissing(field, width);
    else
        m_at += width;
}

unsigned int RecordVerifier::count(const char* field, std::size_t smallestItem) {
    const int found = number(field);
    if (found < 0)
        expect(false, FindingCode::COUNT_NEGATIVE, field, found, "0 for an empty list");
    if (found <= 0)
        return 0;
    const auto entries = static_cast<unsigned int>(found);
    const unsigned long long left = m_end - m_at;
    if (entries <= left / smallestItem)
        return entries;
    m_isWhole = false;
    add(FindingCode::COUNT_TOO_LARGE, field, m_at - WORD_SIZE,
        "There are " + std::to_string(entries) + " entries of at least " +
            std::to_string(smallestItem) + " bytes to come, and " + std::to_string(left) +
            " bytes left in the record.");
    return 0;
}

/// Those of the type itself.
void RecordVerifier::ownConstraints() {
    unsigned int ranges = 0;
    m_facts->hasOpenRange = constraints(ranges);
    m_facts->listAt = relative(m_at - ranges * static_cast<unsigned long long>(CONSTRAINT_SIZE));
    m_facts->listCount = ranges;
}

/// Counted without a sign: the loader makes room for as many ranges as the count says. Whether one
/// of them stands open.
bool RecordVerifier::constraints(unsigned int& ranges) {
    ranges = word("constraint count");
    const unsigned long long left = m_end - m_at;
    if (ranges > left / CONSTRAINT_SIZE) {
        m_isWhole = false;
        add(FindingCode::COUNT_TOO_LARGE, "constraint count", m_at - WORD_SIZE,
            "There are " + std::to_string(ranges) + " ranges of 12 bytes to come, and " +
                std::to_string(left) + " bytes left in the record.");
        ranges = 0;
    }
    bool isOpen = false;
    for (unsigned int i = 0; i < ranges; ++i, m_at += CONSTRAINT_SIZE) {
        const char* range = m_window.at(m_at, CONSTRAINT_SIZE);
        isOpen = isOpen || littleEndianAt<int>(range + DIRECTION_OFFSET) == UNCONSTRAINED_DIRECTION;
    }
    return isOpen;
}

void RecordVerifier::reference(const char* field) {
    m_facts->referenceAt = relative(m_at);
    m_facts->reference = word(field);
}

/// The loader drops those that are too large and keeps those that are negative.
void RecordVerifier::flavour(const char* field, int last) {
    const int found = number(field);
    expect(found >= 0 && found <= last, FindingCode::FLAVOUR_UNKNOWN, field, found,
           last == LAST_EVENT_KIND ? "0 or 1" : "one of 0 to 3");
}

/// Says what was found in the word that was read last, unless it holds what it should.
void RecordVerifier::expect(bool holds, FindingCode code, const char* field, long long found,
                            const char* expected) {
    if (!holds && m_isWhole)
        add(code, field, m_at - WORD_SIZE,
            "Found " + std::to_string(found) + ", expected " + expected + ".");
}

void RecordVerifier::isMissing(const char* field, std::size_t width) {
    m_isWhole = false;
    add(FindingCode::FIELD_MISSING, field, m_at,
        "The field takes " + std::to_string(width) + " bytes, and " + std::to_string(m_end - m_at) +
            " are left in the record.");
}

void RecordVerifier::add(FindingCode code, const char* field, unsigned long long offset,
                         std::string text) {
    std::string place;
    if (m_list != nullptr)
        place = std::string(m_list) + "[" + std::to_string(m_index) + "].";
    m_findings.add(code, m_typeId, place + field, offset, std::move(text));
}

} // namespace TypeFile
