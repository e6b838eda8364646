#include "Inspect/declarations/PredefinedTypes.h"

#include "Inspect/declarations/Identifiers.h"
#include "RTTI/Ranges.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>

namespace Inspect {

using namespace RTTI;

namespace {

std::string_view viewOf(const char* name) { return name != nullptr ? name : ""; }
std::string_view nameOf(const RTBaseType& type) { return viewOf(type.m_name); }

bool isSameInVhdl(std::string_view name, std::string_view other) {
    return !other.empty() && name.size() == other.size() &&
           identityOf(SourceLanguage::VHDL, name) == identityOf(SourceLanguage::VHDL, other);
}

// Enumerations.

using Literals = std::vector<std::string>;

std::array<std::string_view, 32> controlCharacters() {
    return {"nul", "soh", "stx", "etx", "eot", "enq", "ack", "bel", "bs",  "ht",  "lf",
            "vt",  "ff",  "cr",  "so",  "si",  "dle", "dc1", "dc2", "dc3", "dc4", "nak",
            "syn", "etb", "can", "em",  "sub", "esc", "fsp", "gsp", "rsp", "usp"};
}

Literals characterLiterals() {
    Literals literals;
    for (const std::string_view name : controlCharacters())
        literals.emplace_back(name);
    for (int code = 32; code < 256; ++code) {
        if (code == 127)
            literals.emplace_back("del");
        else if (code >= 128 && code < 160)
            literals.push_back('c' + std::to_string(code));
        else
            literals.push_back({'\'', static_cast<char>(code), '\''});
    }
    return literals;
}

struct PredefinedEnum {
    std::string_view name;
    Literals literals;
};

const PredefinedEnum* predefinedEnum(std::string_view name) {
    static const PredefinedEnum enums[] = {
        {"boolean", {"false", "true"}},
        {"bit", {"'0'", "'1'"}},
        {"character", characterLiterals()},
        {"severity_level", {"note", "warning", "error", "failure"}},
        {"file_open_kind", {"read_mode", "write_mode", "append_mode"}},
        {"file_open_status", {"open_ok", "status_error", "name_error", "mode_error"}}};
    const auto found =
        std::find_if(std::begin(enums), std::end(enums),
                     [=](const PredefinedEnum& e) { return isSameInVhdl(name, e.name); });
    return found != std::end(enums) ? found : nullptr;
}

bool isPredefinedEnum(const RTSeqEnumType& type) {
    const PredefinedEnum* expected = predefinedEnum(nameOf(type));
    return expected != nullptr &&
           std::equal(type.m_enumeratorNames.begin(), type.m_enumeratorNames.end(),
                      expected->literals.begin(), expected->literals.end(),
                      [](const char* name, std::string_view literal) {
                          return isSameInVhdl(viewOf(name), literal);
                      });
}

// Numbers.

constexpr FullConstraints integerRange = {std::numeric_limits<std::int32_t>::min(),
                                          std::numeric_limits<std::int32_t>::max(),
                                          TypeFileFormat::TO_DIRECTION};

bool isInteger(const RTBaseType* type) {
    return type != nullptr && type->GetClassId() == ClassId::INT &&
           isSameInVhdl(nameOf(*type), "integer") &&
           isSame(static_cast<const RTIntType*>(type)->m_constraint, integerRange);
}

bool isReal(const RTBaseType* type) {
    if (type == nullptr || type->GetClassId() != ClassId::FLOAT ||
        !isSameInVhdl(nameOf(*type), "real"))
        return false;
    const auto& real = *static_cast<const RTFloatType*>(type);
    return real.m_left == std::numeric_limits<double>::lowest() &&
           real.m_right == std::numeric_limits<double>::max() &&
           real.m_direction == TypeFileFormat::TO_DIRECTION;
}

bool isTime(const RTBaseType* type) {
    static constexpr std::string_view names[] = {"fs", "ps", "ns", "us", "ms", "sec", "min", "hr"};
    static constexpr std::int64_t factors[] = {1, 1000, 1000, 1000, 1000, 1000, 60, 60};
    if (type == nullptr || type->GetClassId() != ClassId::PHYSICAL ||
        !isSameInVhdl(nameOf(*type), "time"))
        return false;
    const auto& units = static_cast<const RTPhysicalType*>(type)->m_units;
    if (units.size() != std::size(names))
        return false;
    std::int64_t value = 1;
    for (std::size_t i = 0; i < units.size(); ++i) {
        value *= factors[i];
        if (!isSameInVhdl(units[i].unitName, names[i]) || units[i].value != value)
            return false;
    }
    return true;
}

/// A typedef of an integer or of time that has its name and its whole range.
bool isFirstSubtype(const RTTypedefType& type) {
    const std::vector<FullConstraints>& constraints = type.m_constraints;
    if (isSameInVhdl(nameOf(type), "time"))
        return isTime(type.m_dataType) && constraints.empty();
    return isSameInVhdl(nameOf(type), "integer") && isInteger(type.m_dataType) &&
           (constraints.empty() ||
            (constraints.size() == 1 && isSame(constraints.front(), integerRange)));
}

bool isPredefinedSubtype(const RTTypedefType& type) {
    const std::vector<FullConstraints>& constraints = type.m_constraints;
    if (isFirstSubtype(type))
        return true;
    if (isSameInVhdl(nameOf(type), "delay_length"))
        return isTime(type.m_dataType) && constraints.empty();
    const bool isNatural = isSameInVhdl(nameOf(type), "natural");
    if (!isNatural && !isSameInVhdl(nameOf(type), "positive"))
        return false;
    return isInteger(type.m_dataType) && constraints.size() == 1 &&
           isSame(constraints.front(),
                  {isNatural ? 0 : 1, integerRange.ei, TypeFileFormat::TO_DIRECTION});
}

// Arrays.

struct PredefinedArray {
    std::string_view name;
    std::string_view element;
    std::string_view index;
};

constexpr PredefinedArray arrays[] = {
    {"string", "character", "positive"}, {"boolean_vector", "boolean", "natural"},
    {"bit_vector", "bit", "natural"},    {"integer_vector", "integer", "natural"},
    {"real_vector", "real", "natural"},  {"time_vector", "time", "natural"}};

bool isPredefinedArray(const RTArrayType& type, const TypeLookup& types) {
    const std::string_view name = nameOf(type);
    const auto expected =
        std::find_if(std::begin(arrays), std::end(arrays),
                     [=](const PredefinedArray& a) { return isSameInVhdl(name, a.name); });
    if (expected == std::end(arrays) || type.m_indexTypeIds.size() != 1 ||
        type.m_elementType == nullptr || type.m_constraints.size() > 1)
        return false;
    if (!type.m_constraints.empty() && !isOpen(type.m_constraints.front()))
        return false;
    const RTBaseType* index = types(type.m_indexTypeIds.front());
    return index != nullptr && index->GetClassId() == ClassId::TYPEDEF &&
           isSameInVhdl(nameOf(*index), expected->index) &&
           isPredefinedSubtype(static_cast<const RTTypedefType&>(*index)) &&
           type.m_elementType->GetClassId() != ClassId::ARRAY &&
           isSameInVhdl(nameOf(*type.m_elementType), expected->element) &&
           isPredefinedInVhdl(*type.m_elementType, types);
}

// SystemVerilog.

struct IntegerKeyword {
    std::string_view keyword;
    std::string_view bit; ///< The name of its element.
    int width;
};

constexpr IntegerKeyword integerKeywords[] = {{"byte", "bit", 8},       {"shortint", "bit", 16},
                                              {"int", "bit", 32},       {"longint", "bit", 64},
                                              {"integer", "logic", 32}, {"time", "logic", 64}};

std::string_view keywordOfArray(const RTArrayType& type) {
    if (type.m_arrayKind != VLOG_FIXED_PACKED_ARRAY || type.m_indexTypeIds.size() != 1 ||
        type.m_constraints.size() != 1 || type.m_elementType == nullptr)
        return {};
    const std::string_view name = nameOf(type);
    const auto known = std::find_if(std::begin(integerKeywords), std::end(integerKeywords),
                                    [=](const IntegerKeyword& k) { return k.keyword == name; });
    if (known == std::end(integerKeywords) ||
        systemVerilogKeyword(*type.m_elementType) != known->bit)
        return {};
    const FullConstraints whole = {known->width - 1, 0, TypeFileFormat::DOWNTO_DIRECTION};
    return isSame(type.m_constraints.front(), whole) ? known->keyword : std::string_view();
}

std::string_view keywordOfEnum(const RTSeqEnumType& type) {
    if (type.m_enumKind != VLOG_BUILTIN_ENUM)
        return {};
    const std::string_view name = nameOf(type);
    const std::size_t states = type.m_enumeratorNames.size();
    if (name == "bit" && states == 2)
        return "bit";
    if (states != 4)
        return {};
    return name == "logic" ? "logic" : name == "reg" ? "reg" : std::string_view();
}

template <std::size_t N>
std::string_view oneOf(const std::string_view (&keywords)[N], std::string_view name) {
    const auto found = std::find(std::begin(keywords), std::end(keywords), name);
    return found != std::end(keywords) ? *found : std::string_view();
}

bool isVoid(const RTRecordType& type) {
    return type.m_recordKind == VLOG_UNPACKED_STRUCT && type.m_members.empty();
}

} // namespace

bool isPredefinedInVhdl(const RTBaseType& type, const TypeLookup& types) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: return isPredefinedEnum(static_cast<const RTSeqEnumType&>(type));
    case ClassId::INT: return isInteger(&type);
    case ClassId::FLOAT: return isReal(&type);
    case ClassId::PHYSICAL: return isTime(&type);
    case ClassId::TYPEDEF: return isPredefinedSubtype(static_cast<const RTTypedefType&>(type));
    case ClassId::ARRAY:
        return static_cast<const RTArrayType&>(type).m_arrayKind == VHDL_ARRAY &&
               isPredefinedArray(static_cast<const RTArrayType&>(type), types);
    default: return false;
    }
}

std::string_view systemVerilogKeyword(const RTBaseType& type) {
    static constexpr std::string_view integers[] = {"byte", "shortint", "int", "longint"};
    static constexpr std::string_view reals[] = {"real", "shortreal", "realtime"};
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM: return keywordOfEnum(static_cast<const RTSeqEnumType&>(type));
    case ClassId::ARRAY: return keywordOfArray(static_cast<const RTArrayType&>(type));
    case ClassId::INT: return oneOf(integers, nameOf(type));
    case ClassId::FLOAT: return oneOf(reals, nameOf(type));
    case ClassId::STRING: return nameOf(type) == "string" ? "string" : "";
    case ClassId::EVENT: return nameOf(type) == "event" ? "event" : "";
    case ClassId::CHANDLE: return nameOf(type) == "chandle" ? "chandle" : "";
    case ClassId::RECORD:
        return isVoid(static_cast<const RTRecordType&>(type)) && nameOf(type) == "void" ? "void"
                                                                                        : "";
    default: return {};
    }
}

} // namespace Inspect
