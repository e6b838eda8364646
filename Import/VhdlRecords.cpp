#include "Import/VhdlRecords.h"

#include "RTTI/TypeFileFormat.h"
#include "TypeFile/TypeBuilding.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Import {

using namespace RTTI;

namespace {

constexpr unsigned int ENUM_SIZE = 1;      ///< Of a value, in bytes.
constexpr unsigned int WIDE_ENUM_SIZE = 4; ///< Where there are more than 256 literals.
constexpr unsigned int ACCESS_SIZE = 8;    ///< A pointer.
constexpr unsigned int FILE_SIZE = 4;      ///< The number of a file.

constexpr std::int64_t LEAST = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t MOST = std::numeric_limits<std::int32_t>::max();

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
        return {0, 0, TypeFileFormat::UNCONSTRAINED_DIRECTION};
    return {static_cast<int>(std::clamp(range.left, LEAST, MOST)),
            static_cast<int>(std::clamp(range.right, LEAST, MOST)),
            range.isDownto ? TypeFileFormat::DOWNTO_DIRECTION : TypeFileFormat::TO_DIRECTION};
}

std::string textOf(const VhdlRange& range) {
    return std::to_string(range.left) + (range.isDownto ? " downto " : " to ") +
           std::to_string(range.right);
}

/// What every implementation of VHDL has, so that nothing about it can be lost.
bool isPredefined(const VhdlType& type) {
    return (type.kind == VhdlKind::PHYSICAL && type.name == "time" && !type.parts.empty() &&
            type.parts.front().name == "fs") ||
           (type.kind == VhdlKind::INTEGER && type.name == "integer") ||
           (type.kind == VhdlKind::REAL && type.name == "real");
}

class VhdlRecordMaker {
public:
    VhdlRecordMaker(const VhdlTypes& types, TypeTable& table, Notes& notes)
        : m_types(types), m_table(table), m_notes(notes), m_ids(types.size(), VhdlType::NONE) {}

    void make() {
        for (const VhdlDeclaration& declaration : m_types.declarations())
            want(declaration);
        // Types that were met on the way can lead to more of them.
        for (std::size_t i = 0; i < m_waiting.size(); ++i) {
            const VhdlType& type = m_types[m_waiting[i]];
            std::unique_ptr<RTBaseType> record = recordOf(type);
            if (record == nullptr) {
                m_table.leaveOut(m_ids[m_waiting[i]], labelOf(type));
                continue;
            }
            TypeFile::setName(*record, type.name);
            m_table.fill(m_ids[m_waiting[i]], std::move(record), type.place);
        }
    }

private:
    void want(const VhdlDeclaration& declaration) {
        const VhdlType& type = m_types[declaration.type];
        if (type.kind == VhdlKind::UNKNOWN)
            note(type, type.reason);
        else
            m_table.want(idOf(declaration.type), declaration.package);
    }

    /// Whether a subtype is another name at best: it has none, and no ranges that are known.
    static bool addsNothing(const VhdlType& type) {
        return type.kind == VhdlKind::SUBTYPE && type.name.empty() && type.mayBePart;
    }

    unsigned int idOf(std::uint32_t type) {
        for (; addsNothing(m_types[type]); type = m_types[type].of.type) {
            if (m_noted.insert(type).second)
                noteMissingRanges(m_types[type]);
        }
        if (m_ids[type] == VhdlType::NONE) {
            m_ids[type] = m_table.reserve();
            m_waiting.push_back(type);
        }
        return m_ids[type];
    }

    static std::string labelOf(const VhdlType& type) {
        return type.name.empty() ? "a type without a name" : "type " + type.name;
    }

    void note(const VhdlType& type, const std::string& text) {
        m_notes.add(type.place, labelOf(type) + ": " + text);
    }

    /// Null for a type of which there is no record.
    std::unique_ptr<RTBaseType> recordOf(const VhdlType& type) {
        noteAlternatives(type);
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
        return nullptr;
    }

    void noteAlternatives(const VhdlType& type) {
        std::set<std::uint32_t> noted;
        const auto check = [&](const VhdlUse& use) {
            if (!use.alternatives.empty() && noted.insert(use.type).second)
                note(type, "the input does not say which " + m_types[use.type].name +
                               " it uses; there are " +
                               std::to_string(use.alternatives.size() + 1) +
                               "; the nearest is taken");
        };
        check(type.of);
        for (const VhdlUse& index : type.indexes)
            check(index);
        for (const VhdlPart& part : type.parts)
            check(part.use);
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

    /// A constraint, with a note where the range had to be cut to 32 bits.
    FullConstraints keptRange(const VhdlType& type, const VhdlRange& range) {
        if (std::min(range.left, range.right) < LEAST || std::max(range.left, range.right) > MOST)
            note(type, "its range " + textOf(range) + " is cut to 32 bits");
        return constraintOf(range);
    }

    std::vector<FullConstraints> keptRanges(const VhdlType& type,
                                            const std::vector<VhdlRange>& ranges) {
        std::vector<FullConstraints> constraints;
        constraints.reserve(ranges.size());
        for (const VhdlRange& range : ranges)
            constraints.push_back(keptRange(type, range));
        return constraints;
    }

    std::unique_ptr<RTBaseType> integer(const VhdlType& type) {
        auto result = std::make_unique<RTIntType>();
        VhdlRange range = type.range;
        if (range.isOpen) {
            range = {false, false, LEAST, MOST};
            if (!isPredefined(type))
                note(type, "its range is not in the input; 32 bits are assumed");
        } else if (type.mayBeReal) {
            note(type, "the input does not say whether its range " + textOf(range) +
                           " is one of whole numbers or of reals; whole numbers are assumed");
        }
        result->m_constraint = keptRange(type, range);
        return result;
    }

    std::unique_ptr<RTBaseType> real(const VhdlType& type) {
        auto result = std::make_unique<RTFloatType>();
        const VhdlRealRange& range = type.realRange;
        result->m_left = range.left;
        result->m_right = range.right;
        result->m_direction =
            range.isDownto ? TypeFileFormat::DOWNTO_DIRECTION : TypeFileFormat::TO_DIRECTION;
        if (isPredefined(type)) {
            result->m_left = std::numeric_limits<double>::lowest();
            result->m_right = std::numeric_limits<double>::max();
            result->m_direction = TypeFileFormat::TO_DIRECTION;
        } else if (!range.isKnown) {
            note(type, "its range is not in the input; all reals are assumed");
            result->m_left = std::numeric_limits<double>::lowest();
            result->m_right = std::numeric_limits<double>::max();
        } else if (!range.isExact) {
            note(type, "the input gives the bounds of its range to six digits only");
        }
        return result;
    }

    std::unique_ptr<RTBaseType> physical(const VhdlType& type) {
        auto result = std::make_unique<RTPhysicalType>();
        for (const VhdlPart& unit : type.parts)
            TypeFile::addUnit(*result, unit.name, unit.value);
        if (!isPredefined(type))
            noteLostRange(type, type);
        return result;
    }

    void noteLostRange(const VhdlType& type, const VhdlType& physical) {
        const std::string unit = physical.parts.empty() ? "" : " " + physical.parts.front().name;
        note(type, type.range.isOpen ? "its range is not in the input, and could not be kept"
                                     : "its range " + textOf(type.range) + unit + " is not kept");
    }

    std::unique_ptr<RTBaseType> array(const VhdlType& type) {
        auto result = std::make_unique<RTArrayType>();
        result->m_arrayKind = VHDL_ARRAY;
        result->m_elementTypeId = idOf(type.of.type);
        for (const VhdlUse& index : type.indexes)
            result->m_indexTypeIds.push_back(
                index.type == VhdlType::NONE ? TypeFileFormat::NO_TYPE_ID : idOf(index.type));
        result->m_constraints = keptRanges(type, type.of.ranges);
        return result;
    }

    std::unique_ptr<RTBaseType> record(const VhdlType& type) {
        auto result = std::make_unique<RTRecordType>();
        result->m_recordKind = VHDL_RECORD;
        result->m_members.reserve(type.parts.size());
        for (const VhdlPart& member : type.parts)
            TypeFile::addMember(*result, member.name, idOf(member.use.type),
                                keptRanges(type, member.use.ranges));
        return result;
    }

    template <typename Reference>
    std::unique_ptr<RTBaseType> reference(const VhdlType& type, unsigned int size) {
        auto result = std::make_unique<Reference>();
        result->m_refTypeId = idOf(type.of.type);
        result->m_alignment = size;
        result->m_valueSize = size;
        return result;
    }

    std::unique_ptr<RTBaseType> subtype(const VhdlType& type) {
        auto result = std::make_unique<RTTypedefType>();
        result->m_dataTypeId = idOf(type.of.type);
        result->m_constraints = keptRanges(type, type.of.ranges);
        const VhdlType& base = m_types[type.of.type];
        if (base.kind == VhdlKind::PHYSICAL) {
            if (!isPredefined(base) || type.name != "delay_length")
                noteLostRange(type, base);
        } else if (!type.range.isOpen) {
            result->m_constraints.push_back(keptRange(type, type.range));
        }
        if (type.mayBePart)
            noteMissingRanges(type);
        noteResolution(type, base);
        return result;
    }

    void noteMissingRanges(const VhdlType& type) {
        note(type, "the input does not say which of its arrays have ranges");
    }

    /// Dumps show a resolved subtype of an enumeration as one with all of its literals.
    void noteResolution(const VhdlType& type, const VhdlType& base) {
        if (base.kind == VhdlKind::ENUMERATION && type.name != "std_logic" && !type.range.isOpen &&
            type.range.left == 0 &&
            type.range.right + 1 == static_cast<std::int64_t>(base.parts.size()))
            note(type, "the input does not say whether it has a resolution function");
    }

    const VhdlTypes& m_types;
    TypeTable& m_table;
    Notes& m_notes;
    std::vector<unsigned int> m_ids;      ///< Of each type, once it is needed.
    std::vector<std::uint32_t> m_waiting; ///< Types that are needed, in that order.
    std::set<std::uint32_t> m_noted;      ///< Subtypes that are replaced by what they are of.
};

} // namespace

void addVhdlRecords(const VhdlTypes& types, TypeTable& table, Notes& notes) {
    VhdlRecordMaker(types, table, notes).make();
}

} // namespace Import
