#include "Inspect/declarations/SystemVerilogDeclarations.h"

#include "Inspect/declarations/EnumValues.h"
#include "Inspect/declarations/PredefinedTypes.h"
#include "Inspect/declarations/SystemVerilogNeeds.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/Ranges.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Inspect {

using namespace RTTI;

namespace {

/// Writes `text` with a space at its end, unless it has one: an escaped identifier ends with its
/// own.
void writeSpaced(Text& out, std::string_view text) {
    out << text;
    if (!text.empty() && text.back() != ' ')
        out << ' ';
}

/// Writes `name after;`: the name that a typedef or a member ends with.
void writeEnding(Text& out, std::string_view name, std::string_view behind) {
    if (behind.empty())
        out << name;
    else
        writeSpaced(out, name);
    out << behind << ';';
}

std::string dimensionsOf(const RTArrayType& type) {
    return written([&](Text& out) {
        for (std::size_t i = 0; i < type.m_indexTypeIds.size(); ++i) {
            if (i >= type.m_constraints.size() || isOpen(type.m_constraints[i]))
                out << "[]";
            else
                out << '[' << type.m_constraints[i].si << ':' << type.m_constraints[i].ei << ']';
        }
    });
}

const char* aggregateWords(RecordKind kind) {
    switch (kind) {
    case VLOG_PACKED_STRUCT: return "struct packed";
    case VLOG_PACKED_TAGGED_UNION: return "union tagged packed";
    case VLOG_UNPACKED_TAGGED_UNION: return "union tagged";
    case VLOG_PACKED_UNTAGGED_UNION: return "union packed";
    case VLOG_UNPACKED_UNTAGGED_UNION: return "union";
    default: return "struct";
    }
}

std::string_view scalarWord(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
        return static_cast<const RTSeqEnumType&>(type).m_valueEncoding == ENCODING_2_STATE
                   ? "bit"
                   : "logic";
    case ClassId::INT: return "int";
    case ClassId::FLOAT: {
        const int kind = static_cast<const RTFloatType&>(type).m_floatKind;
        return kind == 2 ? "shortreal" : kind == 3 ? "realtime" : "real";
    }
    case ClassId::STRING: return "string";
    case ClassId::EVENT: return "event";
    case ClassId::CHANDLE: return "chandle";
    default: return {};
    }
}

/// Whether the language has a typedef for the type.
bool isTypedef(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM:
    case ClassId::RECORD:
    case ClassId::TYPEDEF: return true;
    default: return isSystemVerilogArray(type.GetClassId()) || !scalarWord(type).empty();
    }
}

bool hasOpenDimension(const RTArrayType& type) {
    for (std::size_t i = 0; i < type.m_indexTypeIds.size(); ++i) {
        if (i >= type.m_constraints.size() || isOpen(type.m_constraints[i]))
            return true;
    }
    return false;
}

/// Why a declaration with the body of the type is not legal; else empty.
const char* obstacleInBody(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(type);
        if (array.m_indexTypeIds.empty())
            return "an array has at least one dimension";
        return isPackedArray(array) && hasOpenDimension(array) ? "a packed dimension has bounds"
                                                               : "";
    }
    case ClassId::RECORD: {
        const auto& members = static_cast<const RTRecordType&>(type).m_members;
        const bool isEmpty = std::all_of(members.begin(), members.end(),
                                         [](const auto* member) { return member == nullptr; });
        return isEmpty && systemVerilogKeyword(type).empty() ? "a struct has at least one member"
                                                             : "";
    }
    case ClassId::DISCRETE_ENUM:
        return static_cast<const RTDiscreteEnumType&>(type).m_enumerators.empty()
                   ? "an enumeration has at least one literal"
                   : "";
    default: return "";
    }
}

} // namespace

SystemVerilogDeclarations::Parts SystemVerilogDeclarations::partsOf(unsigned int id,
                                                                    Spelling spelling,
                                                                    bool isPackedElement,
                                                                    int depth) const {
    if (!isSystemVerilogArray(m_names.classOf(id)))
        return {nameHere(id), {}};
    const RTBaseType* type = typeOf(id);
    // A predefined integer takes no packed dimensions: its own are written out.
    const bool isInteger = isPackedElement && !systemVerilogKeyword(*type).empty();
    const bool isWritten = spelling == Spelling::BODY || isInteger ||
                           (Inspect::isSpelledOut(m_names, id) && depth < INLINE_LIMIT);
    if (!isWritten)
        return {nameHere(id), {}};
    switch (type->GetClassId()) {
    case ClassId::ARRAY: return arrayParts(static_cast<const RTArrayType&>(*type), depth);
    case ClassId::DYNAMIC_ARRAY:
        return containerParts(static_cast<const RTAbstractArrayType&>(*type), "[]", depth);
    case ClassId::QUEUE:
        return containerParts(static_cast<const RTAbstractArrayType&>(*type), "[$]", depth);
    default: {
        const auto& map = static_cast<const RTAssocArrayType&>(*type);
        return containerParts(map, '[' + indexOf(map, depth) + ']', depth);
    }
    }
}

SystemVerilogDeclarations::Parts SystemVerilogDeclarations::arrayParts(const RTArrayType& type,
                                                                       int depth) const {
    Parts parts = partsOf(type.m_elementTypeId, Spelling::NAME, isPackedArray(type), depth + 1);
    if (!isPackedArray(type)) {
        parts.after = dimensionsOf(type) + parts.after;
        return parts;
    }
    // The dimensions of the outer array stand before those of its elements.
    std::string before(parts.before.view());
    const std::size_t inner = before.find(" [");
    const std::size_t place = inner == std::string::npos ? before.size() : inner + 1;
    if (place == before.size() && before.back() != ' ')
        before += ' ' + dimensionsOf(type);
    else
        before.insert(place, dimensionsOf(type));
    parts.before = Identifier(std::move(before));
    return parts;
}

SystemVerilogDeclarations::Parts
SystemVerilogDeclarations::containerParts(const RTAbstractArrayType& type,
                                          const std::string& dimension, int depth) const {
    Parts parts = partsOf(type.m_elementTypeId, Spelling::NAME, false, depth + 1);
    parts.after = dimension + parts.after;
    return parts;
}

std::string SystemVerilogDeclarations::indexOf(const RTAssocArrayType& type, int depth) const {
    const RTBaseType* index = typeOf(type.m_indexTypeId);
    if (index != nullptr && index->GetClassId() == ClassId::WILDCARD)
        return "*";
    if (index != nullptr && isSpelledOutAsIndex(m_types, m_names, type.m_indexTypeId))
        return std::string(
            partsOf(type.m_indexTypeId, Spelling::NAME, false, depth + 1).before.view());
    return std::string(nameHere(type.m_indexTypeId).view());
}

void SystemVerilogDeclarations::writeWithoutPlace(Text& out,
                                                  const std::vector<FullConstraints>& ranges,
                                                  std::size_t first) {
    if (first >= ranges.size())
        return;
    out << " // no place for: ";
    writeRuns(out, ranges, RangeLists::SHORT, true, first);
}

void SystemVerilogDeclarations::writeWithoutPlace(Text& out, const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::DISCRETE_ENUM:
        return writeWithoutPlace(out, static_cast<const RTDiscreteEnumType&>(type).m_constraints);
    case ClassId::TYPEDEF:
        return writeWithoutPlace(out, static_cast<const RTTypedefType&>(type).m_constraints);
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(type);
        return writeWithoutPlace(out, array.m_constraints, array.m_indexTypeIds.size());
    }
    default: return;
    }
}

void SystemVerilogDeclarations::enumeration(Text& out, unsigned int id,
                                            const RTDiscreteEnumType& type,
                                            std::size_t most) const {
    const std::vector<Identifier> literals = m_names.literalNames(id, most);
    const std::size_t count = type.m_enumerators.size();
    const bool isFourState = m_types.encodings->of(type) == ENCODING_4_STATE;
    const unsigned int bytes = isFourState ? type.m_valueSize / 2 : type.m_valueSize;
    const std::uint64_t width =
        m_types.widths->of(type.m_baseType).value_or(std::max(bytes, 1U) * 8ULL);
    out << "enum ";
    writeSpaced(out, partsOf(type.m_baseTypeId, Spelling::NAME).before);
    out << "{\n";
    for (std::size_t i = 0; i < literals.size(); ++i) {
        out << "    ";
        writeSpaced(out, literals[i]);
        out << "= ";
        writeEnumValue(out, type.m_enumerators[i].value, type.m_valueSize, width, isFourState);
        out << (i + 1 < count ? ",\n" : "\n");
    }
    out << (literals.size() < count ? "    ...\n} " : "} ");
}

void SystemVerilogDeclarations::members(Text& out, const RTAggregateType& type,
                                        std::size_t most) const {
    const std::vector<Identifier> names = m_names.memberNames(type, most);
    std::size_t position = 0;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (member == nullptr)
            continue;
        if (position == most) {
            out << "    ...\n";
            return;
        }
        const Parts parts = partsOf(member->m_typeId, Spelling::NAME);
        const auto* classMember = type.GetClassId() == ClassId::CLASS
                                      ? dynamic_cast<const RTClassType::t_ClassMember*>(member)
                                      : nullptr;
        out << (classMember != nullptr && classMember->m_memberFlag ? "    static " : "    ");
        writeSpaced(out, parts.before);
        writeEnding(out, names[position++], parts.after);
        writeWithoutPlace(out, member->m_constraints);
        out << '\n';
    }
}

void SystemVerilogDeclarations::classDeclaration(Text& out, unsigned int id,
                                                 const RTClassType& type) const {
    const Identifier name = m_names.typeName(id);
    const unsigned int base = type.m_baseClassTypeId;
    // Some compilers take no package behind `extends`.
    const bool isImported = m_names.isImported(base, m_package);
    if (isImported)
        out << "import " << nameHere(base) << ";\n";
    out << "class ";
    if (base != TypeFileFormat::NO_TYPE_ID) {
        writeSpaced(out, name);
        out << "extends " << (isImported ? m_names.typeName(base) : nameHere(base));
    } else {
        out << name;
    }
    out << ";\n";
    members(out, type, ALL_NAMES);
    out << "endclass\n";
}

std::string SystemVerilogDeclarations::define(Text& out, unsigned int id, std::size_t most) const {
    const RTBaseType* type = typeOf(id);
    Parts parts;
    switch (type != nullptr ? type->GetClassId() : ClassId::WILDCARD) {
    case ClassId::DISCRETE_ENUM:
        enumeration(out, id, static_cast<const RTDiscreteEnumType&>(*type), most);
        return {};
    case ClassId::RECORD: {
        const auto& record = static_cast<const RTRecordType&>(*type);
        out << aggregateWords(record.m_recordKind) << " {\n";
        members(out, record, most);
        out << "} ";
        return {};
    }
    case ClassId::TYPEDEF:
        parts = partsOf(static_cast<const RTTypedefType&>(*type).m_dataTypeId, Spelling::NAME);
        break;
    case ClassId::CLASS:
    case ClassId::WILDCARD: return {};
    default:
        parts = isSystemVerilogArray(type->GetClassId()) ? partsOf(id, Spelling::BODY)
                                                         : Parts{Identifier(scalarWord(*type)), {}};
        break;
    }
    writeSpaced(out, parts.before);
    return parts.after;
}

void SystemVerilogDeclarations::declare(Text& out, unsigned int id) const {
    const RTBaseType* type = typeOf(id);
    if (type == nullptr)
        return remark(out, "there is no such type");
    const std::string_view keyword = systemVerilogKeyword(*type);
    if (!keyword.empty())
        return remark(out, std::string(keyword) + " is built in");
    switch (type->GetClassId()) {
    case ClassId::CLASS: return classDeclaration(out, id, static_cast<const RTClassType&>(*type));
    case ClassId::WILDCARD: return remark(out, "any index of an associative array: [*]");
    default: break;
    }
    if (!isTypedef(*type))
        return remark(out, "SystemVerilog has no such type");
    out << "typedef ";
    const std::string behind = define(out, id, ALL_NAMES);
    writeEnding(out, m_names.typeName(id), behind);
    writeWithoutPlace(out, *type);
    out << '\n';
}

std::string SystemVerilogDeclarations::announcementOf(unsigned int id) const {
    return fmt::format("typedef class {};\n", m_names.typeName(id).view());
}

void SystemVerilogDeclarations::needsOf(unsigned int id, TypeNeeds& needs) const {
    findSystemVerilogNeeds(m_types, m_names, id, needs);
}

bool SystemVerilogDeclarations::isSpelledOut(unsigned int id) const {
    return m_names.classOf(id) == ClassId::WILDCARD || Inspect::isSpelledOut(m_names, id);
}

std::string SystemVerilogDeclarations::ownObstacleOf(unsigned int id,
                                                     const TypeNeeds& needs) const {
    std::string obstacle = obstacleInBody(*typeOf(id));
    for (std::size_t i = 0; i < needs.inside.size() && obstacle.empty(); ++i)
        obstacle = obstacleInBody(*typeOf(needs.inside[i]));
    return obstacle;
}

} // namespace Inspect
