#include "Inspect/declarations/VhdlDeclarations.h"

#include "Inspect/declarations/Identifiers.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/Ranges.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace Inspect {

using namespace RTTI;

namespace {

/// Typedefs, and nested arrays and records, are followed through this many.
constexpr int CHAIN_LIMIT = 1000;
constexpr int NESTING_LIMIT = 64;

/// So many types are looked at for one constraint; what comes after them is left out.
constexpr int VISIT_LIMIT = 2000;

/// A constraint is spelled out for arrays of up to this many dimensions. Every user of the type
/// repeats them all.
constexpr std::size_t DIMENSION_LIMIT = 256;

/// The literals of larger enumerations are named by their position.
constexpr std::size_t LITERAL_LIMIT = 1000;

constexpr std::size_t LINE_WIDTH = 92;

bool isDirection(int direction) {
    return direction == TypeFileFormat::DOWNTO_DIRECTION ||
           direction == TypeFileFormat::TO_DIRECTION;
}

void writeDirection(Text& out, int direction) {
    if (isDirection(direction))
        out << (direction == TypeFileFormat::DOWNTO_DIRECTION ? "downto" : "to");
    else
        out << "to /* direction " << direction << " */";
}

/// Writes `items` in lines of ordinary length, indented and separated by commas.
void writeFilled(Text& out, const std::vector<Identifier>& items) {
    out << "    ";
    std::size_t column = 4;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::size_t length = items[i].view().size() + (i + 1 < items.size() ? 1 : 0);
        if (column > 4 && column + length + 1 > LINE_WIDTH) {
            out << "\n    ";
            column = 4;
        } else if (i != 0) {
            out << ' ';
            ++column;
        }
        out << items[i] << (i + 1 < items.size() ? "," : "");
        column += length;
    }
}

/// Writes the range of a dimension that an array with an open dimension has no place for.
void writeLostRange(Text& out, const RTArrayType& type, std::size_t dimension) {
    if (dimension >= type.m_constraints.size() || isOpen(type.m_constraints[dimension]))
        return;
    out << " /* ";
    writeRange(out, type.m_constraints[dimension]);
    out << " */";
}

/// The ranges of an array that constrain its element.
std::vector<FullConstraints> elementRanges(const RTArrayType& type) {
    const std::size_t own = std::min(type.m_indexTypeIds.size(), type.m_constraints.size());
    return {type.m_constraints.begin() + static_cast<std::ptrdiff_t>(own),
            type.m_constraints.end()};
}

/// Whether the language has a declaration for types of this kind.
bool isDeclarable(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
    case ClassId::INT:
    case ClassId::FLOAT:
    case ClassId::PHYSICAL:
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE:
    case ClassId::ARRAY:
    case ClassId::RECORD:
    case ClassId::TYPEDEF: return true;
    default: return false;
    }
}

} // namespace

std::string realLiteral(double number) {
    std::string text = fmt::format("{}", number);
    if (!std::isfinite(number))
        return text;
    const std::size_t exponent = text.find('e');
    const std::size_t mantissa = exponent != std::string::npos ? exponent : text.size();
    if (text.find('.') == std::string::npos)
        text.insert(mantissa, ".0");
    return text;
}

/// Writes what a list of ranges constrains in a type. What the levels within the type itself give
/// is not repeated: `open` stands for it.
///
/// The dimensions take their ranges in the order and from the levels that the library takes them
/// from. In place of the ranges, its stack has their origins.
class VhdlDeclarations::ConstraintText {
public:
    ConstraintText(const VhdlDeclarations& declarations, const Ranges& ranges)
        : m_declarations(declarations), m_ranges(ranges) {
        m_origins.reserve(ranges.size());
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            m_origins.push_back(originAt(i));
            m_isPlaced.push_back(isOpen(ranges[i]));
        }
        m_levels.pushLasting(m_origins);
    }

    /// The ranges that the type has no place for.
    Ranges left() const {
        Ranges left;
        for (std::size_t i = 0; i < m_ranges.size(); ++i) {
            if (!m_isPlaced[i])
                left.push_back(m_ranges[i]);
        }
        return left;
    }

    /// Whether something of the type is constrained; then it has been added to `view`.
    bool add(unsigned int id) {
        const RTBaseType* type = m_declarations.typeOf(id);
        if (type == nullptr || isUsedUp() || ++m_visits > VISIT_LIMIT ||
            m_levels.depth() > NESTING_LIMIT)
            return false;
        switch (type->GetClassId()) {
        case ClassId::TYPEDEF: return addTypedef(static_cast<const RTTypedefType&>(*type));
        case ClassId::ARRAY: return addArray(static_cast<const RTArrayType&>(*type));
        case ClassId::RECORD: return addRecord(static_cast<const RTRecordType&>(*type));
        default: return false;
        }
    }

    std::string_view view() const { return m_text.view(); }

private:
    static constexpr FullConstraints WITHIN_TYPE = {-1, 0, TypeFileFormat::TO_DIRECTION};

    /// A level within the type, while it lasts.
    class Level {
    public:
        Level(ConstraintText& text, const Ranges& own)
            : m_levels(text.m_levels), m_origins(text.originsOf(own)) {
            m_levels.pushLasting(m_origins);
        }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        ~Level() { m_levels.pop(); }

    private:
        Brakel_tolv::ConstraintStack<FullConstraints>& m_levels;
        const Ranges m_origins;
    };

    bool isUsedUp() const {
        return std::find(m_isPlaced.begin(), m_isPlaced.end(), false) == m_isPlaced.end();
    }

    /// The origin of what one of the ranges gives.
    FullConstraints originAt(std::size_t i) const {
        if (isOpen(m_ranges[i]))
            return OPEN_RANGE;
        return {static_cast<int>(i), 0, TypeFileFormat::TO_DIRECTION};
    }

    /// Those of a level within the type. Ranges that repeat the level's own ones have their place
    /// there; those beside its open ones are taken through it.
    Ranges originsOf(const Ranges& own) {
        const FullConstraints* const aligned = alignedRanges(own, m_ranges);
        Ranges origins;
        origins.reserve(own.size());
        for (std::size_t i = 0; i < own.size(); ++i) {
            if (aligned == nullptr) {
                origins.push_back(isOpen(own[i]) ? OPEN_RANGE : WITHIN_TYPE);
                continue;
            }
            const auto beside = static_cast<std::size_t>(aligned - m_ranges.data()) + i;
            origins.push_back(hasBounds(own[i]) ? WITHIN_TYPE : originAt(beside));
            if (isSame(own[i], m_ranges[beside]))
                m_isPlaced[beside] = true;
        }
        return origins;
    }

    /// Whether `add` looks further than at the class of the type.
    bool mayHaveDimensions(unsigned int id) const {
        const unsigned int classId = m_declarations.m_names.classOf(id);
        return classId == ClassId::TYPEDEF || classId == ClassId::ARRAY ||
               classId == ClassId::RECORD;
    }

    bool addTypedef(const RTTypedefType& type) {
        const Level level(*this, type.m_constraints);
        return add(type.m_dataTypeId);
    }

    bool addArray(const RTArrayType& type) {
        if (type.m_indexTypeIds.size() > DIMENSION_LIMIT)
            return false;
        const Level level(*this, type.m_constraints);
        const std::size_t begin = m_text.size();
        bool isConstrained = false;
        for (const unsigned int index : type.m_indexTypeIds) {
            m_text << (m_text.size() == begin ? "(" : ", ");
            const FullConstraints* range = take();
            isConstrained = isConstrained || range != nullptr;
            if (range != nullptr)
                m_declarations.discreteRange(m_text, index, *range);
            else
                m_text << "open";
        }
        if (isConstrained) {
            m_text << ')';
            add(type.m_elementTypeId);
            return true;
        }
        m_text.truncate(begin);
        m_text << "(open)";
        if (add(type.m_elementTypeId))
            return true;
        m_text.truncate(begin);
        return false;
    }

    bool addRecord(const RTRecordType& type) {
        if (type.m_members.size() > VISIT_LIMIT)
            return false;
        const std::size_t begin = m_text.size();
        std::size_t position = 0;
        for (const RTAggregateType::t_Member* member : type.m_members) {
            if (member == nullptr)
                continue;
            const Level level(*this, member->m_constraints);
            const std::size_t before = m_text.size();
            if (mayHaveDimensions(member->m_typeId))
                m_text << (before == begin ? "(" : ", ") << namesOf(type)[position];
            ++position;
            if (!add(member->m_typeId))
                m_text.truncate(before);
        }
        if (m_text.size() == begin)
            return false;
        m_text << ')';
        return true;
    }

    /// The names of the members; found once, for a record may be met again and again.
    const std::vector<Identifier>& namesOf(const RTRecordType& type) {
        const auto [names, isNew] = m_memberNames.try_emplace(&type);
        if (isNew)
            names->second = m_declarations.m_names.memberNames(type);
        return names->second;
    }

    /// The range of the next dimension if the levels within the type leave it open, else null.
    const FullConstraints* take() {
        const FullConstraints origin = m_levels.getConstraint();
        if (origin.dir != TypeFileFormat::TO_DIRECTION || origin.si == WITHIN_TYPE.si)
            return nullptr; // All fields are zero where no level has a range.
        const auto i = static_cast<std::size_t>(origin.si);
        m_isPlaced[i] = true;
        return &m_ranges[i];
    }

    const VhdlDeclarations& m_declarations;
    const Ranges& m_ranges;
    Ranges m_origins; ///< Of `m_ranges`, which are around the type.
    Brakel_tolv::ConstraintStack<FullConstraints> m_levels;
    std::vector<bool> m_isPlaced; ///< Of `m_ranges`; open ones need no place.
    std::unordered_map<const RTRecordType*, std::vector<Identifier>> m_memberNames;
    Text m_text;
    int m_visits = 0;
};

std::optional<unsigned int> VhdlDeclarations::baseOf(unsigned int id) const {
    for (int i = 0; i < CHAIN_LIMIT; ++i) {
        const RTBaseType* type = typeOf(id);
        if (type == nullptr)
            return std::nullopt;
        if (type->GetClassId() != ClassId::TYPEDEF)
            return id;
        id = static_cast<const RTTypedefType*>(type)->m_dataTypeId;
    }
    return std::nullopt;
}

void VhdlDeclarations::bound(Text& out, const RTBaseType& base, unsigned int baseId,
                             int value) const {
    if (base.GetClassId() == ClassId::FLOAT) {
        out << realLiteral(value);
        return;
    }
    if (base.GetClassId() != ClassId::SEQ_ENUM) {
        out << value;
        if (base.GetClassId() != ClassId::PHYSICAL)
            return;
        const auto& units = static_cast<const RTPhysicalType&>(base).m_units;
        if (!units.empty())
            out << ' ' << identifierOf(m_language, units[0].unitName);
        return;
    }
    const auto& literals = static_cast<const RTSeqEnumType&>(base).m_enumeratorNames;
    if (value >= 0 && static_cast<std::size_t>(value) < literals.size() &&
        literals.size() <= LITERAL_LIMIT) {
        const Identifier name = m_names.literalName(baseId, static_cast<std::size_t>(value));
        const std::string_view literal = name;
        // A predefined literal that needs an escape here is one outside ASCII, such as y umlaut.
        const bool isHidden =
            !isCharacterLiteral(literal) && (literal.front() == '\\' || m_names.isHidden(literal));
        if (!isHidden || !m_names.isPredefined(baseId)) {
            out << literal;
            return;
        }
    }
    out << m_names.typeName(baseId) << "'val(" << value << ')';
}

void VhdlDeclarations::scalarRange(Text& out, const RTBaseType& base, unsigned int baseId,
                                   const FullConstraints& range) const {
    bound(out, base, baseId, range.si);
    out << ' ';
    writeDirection(out, range.dir);
    out << ' ';
    bound(out, base, baseId, range.ei);
}

void VhdlDeclarations::discreteRange(Text& out, unsigned int indexTypeId,
                                     const FullConstraints& range) const {
    const std::optional<unsigned int> baseId = baseOf(indexTypeId);
    if (baseId)
        return scalarRange(out, *typeOf(*baseId), *baseId, range);
    out << range.si << ' ';
    writeDirection(out, range.dir);
    out << ' ' << range.ei;
}

void VhdlDeclarations::constraint(Text& out, unsigned int id, const Ranges& ranges) const {
    const auto addLost = [&](const Ranges& lost, std::size_t first) {
        if (first >= lost.size())
            return;
        out << " /* no place for: ";
        writeRuns(out, lost, RangeLists::SHORT, true, first);
        out << " */";
    };
    if (std::all_of(ranges.begin(), ranges.end(), isOpen))
        return;
    const std::optional<unsigned int> baseId = baseOf(id);
    if (!baseId)
        return;
    const RTBaseType& base = *typeOf(*baseId);
    switch (base.GetClassId()) {
    case ClassId::INT:
    case ClassId::FLOAT:
    case ClassId::PHYSICAL:
    case ClassId::SEQ_ENUM:
        out << " range ";
        scalarRange(out, base, *baseId, ranges.front());
        return addLost(ranges, 1);
    default: break;
    }
    ConstraintText text(*this, ranges);
    text.add(id);
    out << text.view();
    addLost(text.left(), 0);
}

/// The typedef with this id, if it has no name and its users spell it out; else null.
const RTTypedefType* VhdlDeclarations::spelledOut(unsigned int id) const {
    if (m_names.classOf(id) != ClassId::TYPEDEF || !isUnnamed(id))
        return nullptr;
    const auto* const alias = static_cast<const RTTypedefType*>(typeOf(id));
    const unsigned int data = alias->m_dataTypeId;
    return typeOf(data) != nullptr && !isUnnamed(data) ? alias : nullptr;
}

bool VhdlDeclarations::isSpelledOut(unsigned int id) const { return spelledOut(id) != nullptr; }

/// What a user with these ranges spells out in place of the type; else null.
const RTTypedefType* VhdlDeclarations::spelledOut(unsigned int id, const Ranges& ranges) const {
    const bool isPlain = std::all_of(ranges.begin(), ranges.end(), isOpen);
    return isPlain ? spelledOut(id) : nullptr;
}

unsigned int VhdlDeclarations::calledType(unsigned int id, const Ranges& ranges) const {
    const RTTypedefType* const alias = spelledOut(id, ranges);
    return alias != nullptr ? alias->m_dataTypeId : id;
}

void VhdlDeclarations::indication(Text& out, unsigned int id, const Ranges& ranges) const {
    const RTTypedefType* const alias = spelledOut(id, ranges);
    const unsigned int called = alias != nullptr ? alias->m_dataTypeId : id;
    out << m_names.typeName(called);
    constraint(out, called, alias != nullptr ? alias->m_constraints : ranges);
}

void VhdlDeclarations::enumeration(Text& out, unsigned int id, std::size_t most) const {
    const auto& type = static_cast<const RTSeqEnumType&>(*typeOf(id));
    std::vector<Identifier> literals = m_names.literalNames(id, most);
    if (literals.size() < type.m_enumeratorNames.size())
        literals.emplace_back(std::string_view("..."));
    std::size_t width = std::string_view("type  is ();").size();
    for (std::size_t i = 0; i < literals.size() && width <= LINE_WIDTH; ++i)
        width += literals[i].view().size() + (i == 0 ? 0 : 2);
    if (width <= LINE_WIDTH)
        width += m_names.typeName(id).view().size();
    out << '(';
    if (width <= LINE_WIDTH) {
        for (std::size_t i = 0; i < literals.size(); ++i)
            out << (i == 0 ? "" : ", ") << literals[i];
    } else {
        out << '\n';
        writeFilled(out, literals);
    }
    out << ')';
}

void VhdlDeclarations::physical(Text& out, unsigned int id, const RTPhysicalType& type,
                                std::size_t most) const {
    out << "range -9223372036854775807 to 9223372036854775807 /* not recorded */\n"
           "    units\n";
    const std::vector<Identifier> units = m_names.literalNames(id, most);
    for (std::size_t i = 0; i < units.size(); ++i) {
        out << "        " << units[i];
        if (i != 0)
            out << " = " << type.m_units[i].value << ' ' << units[0];
        out << ";\n";
    }
    out << (units.size() < type.m_units.size() ? "        ...\n" : "") << "    end units";
}

void VhdlDeclarations::array(Text& out, const RTArrayType& type, std::size_t most) const {
    const std::size_t count = type.m_indexTypeIds.size();
    const Ranges rest = elementRanges(type);
    const bool isConstrained =
        type.m_constraints.size() >= count &&
        std::none_of(type.m_constraints.begin(),
                     type.m_constraints.end() - static_cast<std::ptrdiff_t>(rest.size()), isOpen);
    out << "array (";
    for (std::size_t i = 0; i < std::min(count, most); ++i) {
        const unsigned int index = type.m_indexTypeIds[i];
        const bool hasIndex = index != TypeFileFormat::NO_TYPE_ID;
        out << (i == 0 ? "" : ", ");
        if (hasIndex)
            indication(out, index, {});
        else if (!isConstrained)
            out << "integer";
        if (isConstrained) {
            out << (hasIndex ? " range " : "");
            discreteRange(out, index, type.m_constraints[i]);
        } else {
            out << " range <>";
            writeLostRange(out, type, i);
        }
    }
    out << (count > most ? ", ..." : "") << ") of ";
    indication(out, type.m_elementTypeId, rest);
}

void VhdlDeclarations::record(Text& out, const RTRecordType& type, std::size_t most) const {
    const std::vector<Identifier> names = m_names.memberNames(type, most);
    out << "record\n";
    std::size_t position = 0;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (member == nullptr)
            continue;
        if (position == most) {
            out << "    ...\n";
            break;
        }
        out << "    " << names[position++] << " : ";
        indication(out, member->m_typeId, member->m_constraints);
        out << ";\n";
    }
    out << "end record";
}

void VhdlDeclarations::subtype(Text& out, unsigned int id, const RTTypedefType& type) const {
    if (typeOf(type.m_dataTypeId) == nullptr ||
        m_names.typeName(type.m_dataTypeId).view() != m_names.typeName(id).view())
        return indication(out, type.m_dataTypeId, type.m_constraints);
    out << m_names.madeName(type.m_dataTypeId);
    constraint(out, type.m_dataTypeId, type.m_constraints);
}

std::string VhdlDeclarations::define(Text& out, unsigned int id, std::size_t most) const {
    const RTBaseType* type = typeOf(id);
    switch (type != nullptr ? type->GetClassId() : 0) {
    case ClassId::SEQ_ENUM: enumeration(out, id, most); break;
    case ClassId::INT:
        out << "range ";
        discreteRange(out, TypeFileFormat::NO_TYPE_ID,
                      static_cast<const RTIntType*>(type)->m_constraint);
        break;
    case ClassId::FLOAT: {
        const auto& real = static_cast<const RTFloatType&>(*type);
        out << "range " << realLiteral(real.m_left) << ' ';
        writeDirection(out, real.m_direction);
        out << ' ' << realLiteral(real.m_right);
        break;
    }
    case ClassId::PHYSICAL:
        physical(out, id, static_cast<const RTPhysicalType&>(*type), most);
        break;
    case ClassId::ACCESS:
        out << "access ";
        indication(out, designated(static_cast<const RTAccessType&>(*type)), {});
        break;
    case ClassId::FILE_TYPE:
        out << "file of ";
        indication(out, static_cast<const RTFileType&>(*type).m_refTypeId, {});
        break;
    case ClassId::ARRAY: array(out, static_cast<const RTArrayType&>(*type), most); break;
    case ClassId::RECORD: record(out, static_cast<const RTRecordType&>(*type), most); break;
    case ClassId::TYPEDEF: subtype(out, id, static_cast<const RTTypedefType&>(*type)); break;
    default: break;
    }
    return {};
}

void VhdlDeclarations::declare(Text& out, unsigned int id) const {
    const RTBaseType* type = typeOf(id);
    if (type == nullptr)
        return remark(out, "there is no such type");
    if (!isDeclarable(*type))
        return remark(out, "VHDL has no such type");
    const bool isSubtype = type->GetClassId() == ClassId::TYPEDEF;
    out << (isSubtype ? "subtype " : "type ") << m_names.typeName(id) << " is ";
    define(out, id, ALL_NAMES);
    out << ";\n";
}

std::string VhdlDeclarations::announcementOf(unsigned int id) const {
    return fmt::format("type {};\n", m_names.typeName(id).view());
}

void VhdlDeclarations::needsOf(unsigned int id, TypeNeeds& needs) const {
    needs.named.clear();
    const RTBaseType* type = typeOf(id);
    if (type == nullptr)
        return;
    const auto need = [&](unsigned int needed, const Ranges& ranges = {}) {
        needs.named.push_back({calledType(needed, ranges), false});
    };
    switch (type->GetClassId()) {
    case ClassId::TYPEDEF: {
        const auto& alias = static_cast<const RTTypedefType&>(*type);
        return need(alias.m_dataTypeId, alias.m_constraints);
    }
    case ClassId::FILE_TYPE: return need(static_cast<const RTFileType&>(*type).m_refTypeId);
    case ClassId::ACCESS: {
        const unsigned int target =
            calledType(designated(static_cast<const RTAccessType&>(*type)), {});
        return needs.named.push_back({target, m_names.classOf(target) != ClassId::TYPEDEF});
    }
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(*type);
        need(array.m_elementTypeId, elementRanges(array));
        for (const unsigned int index : array.m_indexTypeIds) {
            if (index != TypeFileFormat::NO_TYPE_ID)
                need(index);
        }
        return;
    }
    case ClassId::RECORD:
        for (const auto* member : static_cast<const RTRecordType&>(*type).m_members) {
            if (member != nullptr)
                need(member->m_typeId, member->m_constraints);
        }
        return;
    default: return;
    }
}

std::string VhdlDeclarations::ownObstacleOf(unsigned int id, const TypeNeeds&) const {
    const RTBaseType& type = *typeOf(id);
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
        return static_cast<const RTSeqEnumType&>(type).m_enumeratorNames.empty()
                   ? "an enumeration has at least one literal"
                   : "";
    case ClassId::INT:
        return isDirection(static_cast<const RTIntType&>(type).m_constraint.dir)
                   ? ""
                   : "its range has no direction";
    case ClassId::FLOAT: {
        const auto& real = static_cast<const RTFloatType&>(type);
        if (!std::isfinite(real.m_left) || !std::isfinite(real.m_right))
            return "its bounds are not numbers";
        return isDirection(real.m_direction) ? "" : "its range has no direction";
    }
    case ClassId::PHYSICAL: {
        const auto& units = static_cast<const RTPhysicalType&>(type).m_units;
        if (units.empty() || units.front().value != 1)
            return "its first unit is not a primary unit";
        return std::all_of(units.begin(), units.end(), [](const auto& u) { return u.value > 0; })
                   ? ""
                   : "a unit has a value below 1";
    }
    case ClassId::ARRAY:
        return static_cast<const RTArrayType&>(type).m_indexTypeIds.empty()
                   ? "an array has at least one dimension"
                   : "";
    case ClassId::RECORD: {
        const auto& members = static_cast<const RTRecordType&>(type).m_members;
        return std::all_of(members.begin(), members.end(),
                           [](const auto* m) { return m == nullptr; })
                   ? "a record has at least one member"
                   : "";
    }
    default: return {};
    }
}

} // namespace Inspect
