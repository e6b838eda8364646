#include "Import/VhdlRecords.h"

#include "Import/TypeSource.h"
#include "Import/VhdlNotes.h"
#include "RTTI/Ranges.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/TypeBuilding.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

namespace Import {

using namespace RTTI;

namespace {

constexpr unsigned int ENUM_SIZE = 1;      ///< Of a value, in bytes.
constexpr unsigned int WIDE_ENUM_SIZE = 4; ///< Where there are more than 256 literals.
constexpr unsigned int ACCESS_SIZE = 8;    ///< A pointer.
constexpr unsigned int FILE_SIZE = 4;      ///< The number of a file.

EnumKind enumKindOf(const VhdlType& type) {
    static constexpr std::string_view stdLogic[] = {"'U'", "'X'", "'0'", "'1'", "'Z'",
                                                    "'W'", "'L'", "'H'", "'-'"};
    static constexpr std::string_view bit[] = {"'0'", "'1'"};
    const auto has = [&](const auto& literals) {
        return std::equal(
            type.parts.begin(), type.parts.end(), std::begin(literals), std::end(literals),
            [](const VhdlPart& part, std::string_view text) { return part.name == text; });
    };
    if (type.name == "bit" && has(bit))
        return VHDL_BIT_ENUM;
    if (type.name == "std_ulogic" && has(stdLogic))
        return VHDL_STD_LOGIC_ENUM;
    return type.name == "character" ? VHDL_CHAR_ENUM : VHDL_OTHER_ENUM;
}

FullConstraints constraintOf(const VhdlRange& range) {
    if (range.isOpen)
        return OPEN_RANGE;
    return {static_cast<int>(std::clamp(range.left, LEAST_BOUND, LARGEST_BOUND)),
            static_cast<int>(std::clamp(range.right, LEAST_BOUND, LARGEST_BOUND)),
            range.isDownto ? TypeFileFormat::DOWNTO_DIRECTION : TypeFileFormat::TO_DIRECTION};
}

std::vector<FullConstraints> constraintsOf(const VhdlUse& use) {
    std::vector<FullConstraints> constraints;
    constraints.reserve(use.ranges.size());
    for (const VhdlRange& range : use.ranges)
        constraints.push_back(constraintOf(range));
    return constraints;
}

/// Whether a subtype is another name at best: it has none, and no ranges that are known.
bool addsNothing(const VhdlType& type) {
    return type.kind == VhdlKind::SUBTYPE && type.name.empty() && type.mayBePart;
}

/// The types of a design that are needed, as a source of a table.
class VhdlRecords final : public TypeSource {
public:
    VhdlRecords(VhdlTypes types, unsigned int firstId)
        : m_types(std::move(types)), m_firstId(firstId), m_numbers(m_types.size(), NOT_NEEDED) {}

    const VhdlTypes& types() const { return m_types; }

    /// The type itself or the one that a record has in its place.
    std::uint32_t kept(std::uint32_t type) const {
        while (addsNothing(m_types[type]))
            type = m_types[type].of.type;
        return type;
    }

    /// Gives a number to a type that is kept, unless it has one. The answer is its id.
    unsigned int need(std::uint32_t type) {
        if (m_numbers[type] == NOT_NEEDED) {
            m_numbers[type] = count();
            m_needed.push_back(type);
        }
        return m_firstId + m_numbers[type];
    }

    const VhdlType& operator[](unsigned int number) const { return m_types[m_needed[number]]; }

    unsigned int count() const override { return static_cast<unsigned int>(m_needed.size()); }

    std::string_view nameOf(unsigned int number) const override { return (*this)[number].name; }

    Place placeOf(unsigned int number) const override { return (*this)[number].place; }

    References& references() { return m_references; }
    const References& references() const override { return m_references; }

    std::unique_ptr<RTBaseType> make(unsigned int number) const override {
        const VhdlType& type = (*this)[number];
        std::unique_ptr<RTBaseType> record = recordOf(type);
        TypeFile::setName(*record, type.name);
        return record;
    }

private:
    static constexpr unsigned int NOT_NEEDED = TypeFileFormat::NO_TYPE_ID;

    unsigned int idOf(const VhdlUse& use) const { return m_firstId + m_numbers[kept(use.type)]; }

    std::unique_ptr<RTBaseType> recordOf(const VhdlType& type) const {
        switch (type.kind) {
        case VhdlKind::UNKNOWN: break;
        case VhdlKind::ENUMERATION: return enumeration(type);
        case VhdlKind::INTEGER: return integer(type);
        case VhdlKind::REAL: return real(type);
        case VhdlKind::PHYSICAL: return physical(type);
        case VhdlKind::ARRAY: return array(type);
        case VhdlKind::RECORD: return record(type);
        case VhdlKind::ACCESS: return reference<RTAccessType>(type, ACCESS_SIZE);
        case VhdlKind::FILE_TYPE: return reference<RTFileType>(type, FILE_SIZE);
        case VhdlKind::SUBTYPE: return subtype(type);
        }
        throw std::logic_error("a type that is left out is not made");
    }

    static std::unique_ptr<RTBaseType> enumeration(const VhdlType& type) {
        auto result = std::make_unique<RTSeqEnumType>();
        result->m_enumKind = enumKindOf(type);
        result->m_valueEncoding = ENCODING_BYTE;
        result->m_valueSize = type.parts.size() > 256 ? WIDE_ENUM_SIZE : ENUM_SIZE;
        result->m_enumeratorNames.reserve(type.parts.size());
        for (const VhdlPart& literal : type.parts)
            TypeFile::addLiteral(*result, literal.name);
        return result;
    }

    static std::unique_ptr<RTBaseType> integer(const VhdlType& type) {
        auto result = std::make_unique<RTIntType>();
        result->m_constraint = constraintOf(
            type.range.isOpen ? VhdlRange{false, false, LEAST_BOUND, LARGEST_BOUND} : type.range);
        return result;
    }

    static std::unique_ptr<RTBaseType> real(const VhdlType& type) {
        auto result = std::make_unique<RTFloatType>();
        const VhdlRealRange& range = type.realRange;
        const bool isWhole = isPredefined(type) || !range.isKnown;
        result->m_left = isWhole ? std::numeric_limits<double>::lowest() : range.left;
        result->m_right = isWhole ? std::numeric_limits<double>::max() : range.right;
        result->m_direction = range.isDownto && !isPredefined(type)
                                  ? TypeFileFormat::DOWNTO_DIRECTION
                                  : TypeFileFormat::TO_DIRECTION;
        return result;
    }

    static std::unique_ptr<RTBaseType> physical(const VhdlType& type) {
        auto result = std::make_unique<RTPhysicalType>();
        for (const VhdlPart& unit : type.parts)
            TypeFile::addUnit(*result, unit.name, unit.value);
        return result;
    }

    std::unique_ptr<RTBaseType> array(const VhdlType& type) const {
        auto result = std::make_unique<RTArrayType>();
        result->m_arrayKind = VHDL_ARRAY;
        result->m_elementTypeId = idOf(type.of);
        result->m_indexTypeIds.reserve(type.indexes.size());
        for (const VhdlUse& index : type.indexes)
            result->m_indexTypeIds.push_back(
                index.type == VhdlType::NONE ? TypeFileFormat::NO_TYPE_ID : idOf(index));
        result->m_constraints = constraintsOf(type.of);
        return result;
    }

    std::unique_ptr<RTBaseType> record(const VhdlType& type) const {
        auto result = std::make_unique<RTRecordType>();
        result->m_recordKind = VHDL_RECORD;
        result->m_members.reserve(type.parts.size());
        for (const VhdlPart& member : type.parts)
            TypeFile::addMember(*result, member.name, idOf(member.use), constraintsOf(member.use));
        return result;
    }

    template <typename Reference>
    std::unique_ptr<RTBaseType> reference(const VhdlType& type, unsigned int size) const {
        auto result = std::make_unique<Reference>();
        result->m_refTypeId = idOf(type.of);
        result->m_alignment = size;
        result->m_valueSize = size;
        return result;
    }

    std::unique_ptr<RTBaseType> subtype(const VhdlType& type) const {
        auto result = std::make_unique<RTTypedefType>();
        result->m_dataTypeId = idOf(type.of);
        result->m_constraints = constraintsOf(type.of);
        if (m_types[type.of.type].kind != VhdlKind::PHYSICAL && !type.range.isOpen)
            result->m_constraints.push_back(constraintOf(type.range));
        return result;
    }

    VhdlTypes m_types;
    unsigned int m_firstId;
    std::vector<unsigned int> m_numbers; ///< Of each type, once it is needed.
    References m_references;             ///< Of each type that is needed.
    std::vector<std::uint32_t> m_needed; ///< Each type that is needed, in the order of finding.
};

/// Finds what a design needs, and notes what records cannot hold of it.
class VhdlSearch {
public:
    VhdlSearch(VhdlRecords& records, Notes& notes)
        : m_records(records), m_types(records.types()), m_notes(m_types, notes) {}

    /// The types that were declared and can be kept, with their packages, and those without a
    /// record. Types that are met on the way can lead to more of them.
    void addTo(TypeTable& table) {
        for (const VhdlDeclaration& declaration : m_types.declarations())
            want(declaration, table);
        for (unsigned int number = 0; number < m_records.count(); ++number)
            look(m_records[number]);
    }

private:
    void want(const VhdlDeclaration& declaration, TypeTable& table) {
        const VhdlType& type = m_types[declaration.type];
        if (type.kind == VhdlKind::UNKNOWN)
            m_notes.add(type, type.reason);
        else
            table.want(need(declaration.type), declaration.package);
    }

    unsigned int need(std::uint32_t type) {
        const std::uint32_t kept = m_records.kept(type);
        for (; type != kept; type = m_types[type].of.type) {
            if (m_replaced.insert(type).second)
                m_notes.missingRanges(m_types[type]);
        }
        return m_records.need(kept);
    }

    void look(const VhdlType& type) {
        m_notes.alternatives(type);
        forEachUse(type, [&](const VhdlUse& use) {
            m_records.references().addId(need(use.type), type.kind != VhdlKind::ACCESS);
            for (const VhdlRange& range : use.ranges)
                m_notes.cutRange(type, range);
        });
        m_records.references().endType();
        m_notes.addOf(type);
    }

    VhdlRecords& m_records;
    const VhdlTypes& m_types;
    VhdlNotes m_notes;
    std::set<std::uint32_t> m_replaced; ///< Subtypes that are replaced by what they are of.
};

} // namespace

void addVhdlRecords(VhdlTypes types, TypeTable& table, Notes& notes) {
    const unsigned int firstId = table.size();
    auto records = std::make_unique<VhdlRecords>(std::move(types), firstId);
    VhdlSearch(*records, notes).addTo(table);
    for (unsigned int number = 0; number < records->count(); ++number) {
        if ((*records)[number].kind == VhdlKind::UNKNOWN)
            table.leaveOut(firstId + number, labelOf((*records)[number]));
    }
    table.addSource(std::move(records));
}

} // namespace Import
