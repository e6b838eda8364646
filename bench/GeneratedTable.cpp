#include "bench/GeneratedTable.h"

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeBuilding.h"
#include "TypeFile/TypeFileWriter.h"

#include <algorithm>
#include <random>
#include <string>

namespace Bench {

using namespace RTTI;
using TypeFile::addLiteral;
using TypeFile::addMember;
using TypeFile::setName;

namespace {

constexpr unsigned int PACKAGE = 100; ///< Types.
constexpr unsigned int SEED = 20240229;

/// The distributions of the standard library give other numbers on other machines; this does not.
class Dice {
public:
    /// From 0 to `sides` - 1.
    unsigned int roll(unsigned int sides) { return static_cast<unsigned int>(m_engine() % sides); }
    bool hasLuck(unsigned int percent) { return roll(100) < percent; }

private:
    std::mt19937 m_engine{SEED};
};

class Generator {
public:
    std::vector<char> table(unsigned int typeCount) {
        for (m_id = 0; m_id < typeCount; ++m_id) {
            m_package = m_id - m_id % PACKAGE;
            m_packageEnd = std::min(m_package + PACKAGE, typeCount);
            addType();
        }
        return m_writer.finish();
    }

private:
    void addType();
    void addScalar();
    void addSeqEnum();
    void addDiscreteEnum();
    void addTypedef();
    void addArray();
    void addContainer();
    void addAccess();
    void addRecord();
    void addClass();

    std::string name(const char* stem, unsigned int longest) {
        static constexpr char LETTERS[] = "etaoinshrdlucmfwypvbgkqjxz_";
        std::string text = stem;
        for (unsigned int left = 3 + m_dice.roll(longest - 2); left > 0; --left)
            text += LETTERS[m_dice.roll(sizeof(LETTERS) - 1)];
        return text;
    }
    FullConstraints range() {
        const int width = static_cast<int>(m_dice.roll(64));
        return m_dice.hasLuck(70) ? FullConstraints{width, 0, 0} : FullConstraints{0, width, 1};
    }
    std::vector<FullConstraints> ranges(unsigned int percent) {
        return m_dice.hasLuck(percent) ? std::vector<FullConstraints>{range()}
                                       : std::vector<FullConstraints>{};
    }
    unsigned int earlierType() { return m_package + m_dice.roll(m_id - m_package); }
    /// Members have one of the package's first types, so that records do not nest without end.
    unsigned int memberType() { return m_package + m_dice.roll(std::min(m_id - m_package, 20u)); }
    unsigned int anyType() { return m_package + m_dice.roll(m_packageEnd - m_package); }
    template <typename Type> void add(Type& type, const char* stem) {
        setName(type, name(stem, 33));
        m_writer.add(type);
    }

    Dice m_dice;
    TypeFile::TypeFileWriter m_writer;
    unsigned int m_id = 0;
    unsigned int m_package = 0;
    unsigned int m_packageEnd = 0;
};

/// A package begins with the types that the others are made of.
void Generator::addType() {
    const unsigned int place = m_id - m_package;
    if (place < 4)
        return place < 2 ? addSeqEnum() : addScalar();
    const unsigned int kind = m_dice.roll(100);
    if (kind < 34)
        addTypedef();
    else if (kind < 60)
        addArray();
    else if (kind < 69)
        addDiscreteEnum();
    else if (kind < 73)
        addSeqEnum();
    else if (kind < 88)
        addRecord();
    else if (kind < 94)
        addClass();
    else if (kind < 98)
        addContainer();
    else
        addAccess();
}

void Generator::addScalar() {
    switch (m_dice.roll(4)) {
    case 0: {
        RTFloatType type;
        type.m_left = -1e308;
        type.m_right = 1e308;
        return add(type, "real_");
    }
    case 1: {
        RTStringType type;
        return add(type, "string_");
    }
    case 2: {
        RTPhysicalType type;
        TypeFile::addUnit(type, "fs", 1);
        TypeFile::addUnit(type, "ps", 1000);
        return add(type, "time_");
    }
    default: {
        RTIntType type;
        type.m_constraint = {-2147483647 - 1, 2147483647, 1};
        return add(type, "integer_");
    }
    }
}

void Generator::addSeqEnum() {
    RTSeqEnumType type;
    type.m_enumKind = VHDL_OTHER_ENUM;
    type.m_valueEncoding = m_dice.hasLuck(50) ? ENCODING_2_STATE : ENCODING_BYTE;
    type.m_valueSize = 1;
    for (unsigned int left = 2 + m_dice.roll(13); left > 0; --left)
        addLiteral(type, name("S_", 10));
    add(type, "state_");
}

void Generator::addDiscreteEnum() {
    RTDiscreteEnumType type;
    type.m_baseTypeId = earlierType();
    const unsigned int literals = 2 + m_dice.roll(14);
    for (unsigned int value = 0; value < literals; ++value)
        addLiteral(type, name("OP_", 10), std::string(4, static_cast<char>(value)));
    type.m_constraints = ranges(50);
    add(type, "opcode_");
}

void Generator::addTypedef() {
    RTTypedefType type;
    type.m_dataTypeId = earlierType();
    type.m_constraints = ranges(50);
    add(type, "pkg::");
}

void Generator::addArray() {
    static constexpr ArrayKind KINDS[] = {VHDL_ARRAY, VLOG_FIXED_PACKED_ARRAY,
                                          VLOG_FIXED_UNPACKED_ARRAY};
    RTArrayType type;
    type.m_arrayKind = KINDS[m_dice.roll(3)];
    type.m_elementTypeId = earlierType();
    for (unsigned int left = m_dice.hasLuck(25) ? 2 : 1; left > 0; --left) {
        type.m_indexTypeIds.push_back(earlierType());
        type.m_constraints.push_back(m_dice.hasLuck(80) ? range() : FullConstraints{0, 0, -2});
    }
    type.m_svTypeId = static_cast<int>(m_id);
    add(type, "vector_");
}

void Generator::addContainer() {
    if (m_dice.hasLuck(50)) {
        RTQueueType type;
        type.m_elementTypeId = earlierType();
        add(type, "queue_");
    } else if (m_dice.hasLuck(50)) {
        RTDynamicArrayType type;
        type.m_elementTypeId = earlierType();
        add(type, "dynamic_");
    } else {
        RTAssocArrayType type;
        type.m_elementTypeId = earlierType();
        type.m_indexTypeId = earlierType();
        add(type, "map_");
    }
}

void Generator::addAccess() {
    RTAccessType type;
    type.m_refTypeId = anyType();
    type.m_alignment = 8;
    type.m_valueSize = 8;
    add(type, "ptr_");
}

void Generator::addRecord() {
    static constexpr RecordKind KINDS[] = {VHDL_RECORD, VLOG_PACKED_STRUCT, VLOG_UNPACKED_STRUCT};
    RTRecordType type;
    type.m_recordKind = KINDS[m_dice.roll(3)];
    // Each argument by itself: compilers throw the dice of a call in different orders.
    for (unsigned int left = 2 + m_dice.roll(11); left > 0; --left) {
        const std::string member = name("", 12);
        const unsigned int typeId = memberType();
        addMember(type, member, typeId, ranges(27));
    }
    add(type, "bundle_");
}

void Generator::addClass() {
    RTClassType type;
    for (unsigned int left = 1 + m_dice.roll(13); left > 0; --left) {
        const std::string member = name("m_", 12);
        const unsigned int typeId = m_dice.hasLuck(20) ? anyType() : memberType();
        const std::vector<FullConstraints> narrowed = ranges(27);
        addMember(type, member, typeId, narrowed, m_dice.hasLuck(50));
    }
    add(type, "work::");
}

void count(const RTBaseType& type, TableShape& sum) {
    if (const auto* aggregate = dynamic_cast<const RTAggregateType*>(&type)) {
        for (const RTAggregateType::t_Member* member : aggregate->m_members)
            sum.constraints += static_cast<double>(member->m_constraints.size());
        sum.parts += static_cast<double>(aggregate->m_members.size());
    } else if (const auto* sequential = dynamic_cast<const RTSeqEnumType*>(&type)) {
        sum.parts += static_cast<double>(sequential->m_enumeratorNames.size());
    } else if (const auto* discrete = dynamic_cast<const RTDiscreteEnumType*>(&type)) {
        sum.parts += static_cast<double>(discrete->m_enumerators.size());
        sum.constraints += static_cast<double>(discrete->m_constraints.size());
    } else if (const auto* array = dynamic_cast<const RTArrayType*>(&type)) {
        sum.constraints += static_cast<double>(array->m_constraints.size());
    } else if (const auto* alias = dynamic_cast<const RTTypedefType*>(&type)) {
        sum.constraints += static_cast<double>(alias->m_constraints.size());
    }
}

} // namespace

std::vector<char> generatedTable(unsigned int typeCount) { return Generator().table(typeCount); }

TableShape shapeOf(const std::vector<char>& table) {
    OVAT::MemoryBlockManager storage(table.data(), table.size());
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    TableShape sum;
    unsigned int types = 0;
    while (const RTBaseType* type = manager.getRTType(types)) {
        count(*type, sum);
        ++types;
    }
    const double records = static_cast<double>(table.size() - TypeFileFormat::HEADER_SIZE) -
                           static_cast<double>(TypeFileFormat::ADDRESS_SIZE) * types;
    return {records / types, sum.parts / types, sum.constraints / types};
}

} // namespace Bench
