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

void setConstraints(std::vector<FullConstraints>& constraints, const VhdlUse& use) {
    constraints.clear();
    for (const VhdlRange& range : use.ranges)
        constraints.push_back(constraintOf(range));
}

/// A name of a pool for an object that lends it.
char* lent(const PoolText& name) { return const_cast<char*>(name.zeroTerminated()); }

/// Whether the library refuses the name: a record's names end at a zero byte.
bool isRefused(std::string_view name) { return name.find('\0') != std::string_view::npos; }

/// A type or member whose names belong to a pool and not to itself.
/// @{
template <typename Type> class Lent final : public Type {
public:
    Lent() = default;
    Lent(const Lent&) = delete;
    Lent& operator=(const Lent&) = delete;
    ~Lent() override {
        this->m_name = nullptr;
        clear();
    }

    /// Gives back the literals or members.
    void clear() {
        if constexpr (std::is_same_v<Type, RTSeqEnumType>)
            this->m_enumeratorNames.clear();
        else if constexpr (std::is_same_v<Type, RTRecordType>)
            this->m_members.clear();
    }
};
template <> class Lent<RTAggregateType::t_Member> final : public RTAggregateType::t_Member {
public:
    ~Lent() override { m_memberName = nullptr; }
};
/// @}

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

    Place placeOf(unsigned int number) const override { return m_types.placeOf((*this)[number]); }

    References& references() { return m_references; }
    References takeReferences() override { return std::move(m_references); }

    RTBaseType& object(unsigned int number) override {
        const VhdlType& type = (*this)[number];
        RTBaseType& object = objectOf(type);
        if (isRefused(type.name))
            TypeFile::setName(object, type.name);
        object.m_name = lent(type.name);
        return object;
    }

private:
    static constexpr unsigned int NOT_NEEDED = TypeFileFormat::NO_TYPE_ID;

    unsigned int idOf(const VhdlUse& use) const { return m_firstId + m_numbers[kept(use.type)]; }

    RTBaseType& objectOf(const VhdlType& type) {
        switch (type.kind) {
        case VhdlKind::UNKNOWN: break;
        case VhdlKind::ENUMERATION: return enumeration(type);
        case VhdlKind::INTEGER: return integer(type);
        case VhdlKind::REAL: return real(type);
        case VhdlKind::PHYSICAL: return physical(type);
        case VhdlKind::ARRAY: return array(type);
        case VhdlKind::RECORD: return record(type);
        case VhdlKind::ACCESS: return reference(m_access, type, ACCESS_SIZE);
        case VhdlKind::FILE_TYPE: return reference(m_file, type, FILE_SIZE);
        case VhdlKind::SUBTYPE: return subtype(type);
        }
        throw std::logic_error("a type that is left out is not made");
    }

    RTBaseType& enumeration(const VhdlType& type) {
        m_enumeration.m_enumKind = enumKindOf(type);
        m_enumeration.m_valueEncoding = ENCODING_BYTE;
        m_enumeration.m_valueSize = type.parts.size() > 256 ? WIDE_ENUM_SIZE : ENUM_SIZE;
        m_enumeration.clear();
        for (const VhdlPart& literal : type.parts) {
            if (isRefused(literal.name))
                TypeFile::addLiteral(m_enumeration, literal.name);
            m_enumeration.m_enumeratorNames.push_back(lent(literal.name));
        }
        return m_enumeration;
    }

    RTBaseType& integer(const VhdlType& type) {
        m_integer.m_constraint = constraintOf(
            type.range.isOpen ? VhdlRange{false, false, LEAST_BOUND, LARGEST_BOUND} : type.range);
        return m_integer;
    }

    RTBaseType& real(const VhdlType& type) {
        static constexpr VhdlRealRange WHOLE = {true, false, std::numeric_limits<double>::lowest(),
                                                std::numeric_limits<double>::max()};
        const bool isWhole = isPredefined(type) || type.realRange == nullptr;
        const VhdlRealRange& range = isWhole ? WHOLE : *type.realRange;
        m_real.m_left = range.left;
        m_real.m_right = range.right;
        m_real.m_direction =
            range.isDownto ? TypeFileFormat::DOWNTO_DIRECTION : TypeFileFormat::TO_DIRECTION;
        return m_real;
    }

    RTBaseType& physical(const VhdlType& type) {
        m_physical.m_units.clear();
        for (const VhdlPart& unit : type.parts)
            TypeFile::addUnit(m_physical, unit.name, unit.value);
        return m_physical;
    }

    RTBaseType& array(const VhdlType& type) {
        m_array.m_arrayKind = VHDL_ARRAY;
        m_array.m_elementTypeId = idOf(type.of);
        m_array.m_indexTypeIds.clear();
        for (const VhdlUse& index : type.uses)
            m_array.m_indexTypeIds.push_back(
                index.type == VhdlType::NONE ? TypeFileFormat::NO_TYPE_ID : idOf(index));
        setConstraints(m_array.m_constraints, type.of);
        return m_array;
    }

    RTBaseType& record(const VhdlType& type) {
        m_record.m_recordKind = VHDL_RECORD;
        m_record.clear();
        for (const VhdlPart& part : type.parts) {
            if (isRefused(part.name))
                TypeFile::addMember(m_record, part.name, 0);
            const std::size_t place = m_record.m_members.size();
            if (place == m_members.size())
                m_members.push_back(std::make_unique<Lent<RTAggregateType::t_Member>>());
            auto& member = *m_members[place];
            member.m_memberName = lent(part.name);
            member.m_typeId = idOf(type.uses[place]);
            setConstraints(member.m_constraints, type.uses[place]);
            m_record.m_members.push_back(&member);
        }
        return m_record;
    }

    RTBaseType& reference(auto& object, const VhdlType& type, unsigned int size) {
        object.m_refTypeId = idOf(type.of);
        object.m_alignment = size;
        object.m_valueSize = size;
        return object;
    }

    RTBaseType& subtype(const VhdlType& type) {
        m_subtype.m_dataTypeId = idOf(type.of);
        setConstraints(m_subtype.m_constraints, type.of);
        if (m_types[type.of.type].kind != VhdlKind::PHYSICAL && !type.range.isOpen)
            m_subtype.m_constraints.push_back(constraintOf(type.range));
        return m_subtype;
    }

    VhdlTypes m_types;
    unsigned int m_firstId;
    std::vector<unsigned int> m_numbers; ///< Of each type, once it is needed.
    References m_references;             ///< Of each type that is needed.
    std::vector<std::uint32_t> m_needed; ///< Each type that is needed, in the order of finding.

    /// What every type of a class is shown as: the object of the one before, with other fields.
    /// @{
    Lent<RTSeqEnumType> m_enumeration;
    Lent<RTIntType> m_integer;
    Lent<RTFloatType> m_real;
    Lent<RTPhysicalType> m_physical;
    Lent<RTArrayType> m_array;
    Lent<RTRecordType> m_record;
    std::vector<std::unique_ptr<Lent<RTAggregateType::t_Member>>> m_members; ///< Of the record.
    Lent<RTAccessType> m_access;
    Lent<RTFileType> m_file;
    Lent<RTTypedefType> m_subtype;
    /// @}
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
            table.want(need(declaration.type), m_types.packageOf(declaration));
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
