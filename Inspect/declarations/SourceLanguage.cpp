#include "Inspect/declarations/SourceLanguage.h"

#include <algorithm>
#include <iterator>

namespace Inspect {

using namespace RTTI;

namespace {

bool hasSystemVerilogName(std::string_view integer) {
    static constexpr std::string_view names[] = {"byte", "shortint", "int", "longint"};
    return std::find(std::begin(names), std::end(names), integer) != std::end(names);
}

SourceLanguage vhdlIf(bool isVhdl) {
    return isVhdl ? SourceLanguage::VHDL : SourceLanguage::SYSTEM_VERILOG;
}

std::optional<SourceLanguage> languageOfArray(unsigned int arrayKind) {
    switch (arrayKind) {
    case VHDL_ARRAY: return SourceLanguage::VHDL;
    case VLOG_FIXED_UNPACKED_ARRAY:
    case VLOG_FIXED_PACKED_ARRAY:
    case VLOG_DYNAMIC_ARRAY:
    case VLOG_ASSOCIATIVE_ARRAY:
    case VLOG_QUEUE: return SourceLanguage::SYSTEM_VERILOG;
    default: return std::nullopt;
    }
}

std::optional<SourceLanguage> languageOfRecord(unsigned int recordKind) {
    switch (recordKind) {
    case VHDL_RECORD: return SourceLanguage::VHDL;
    case VLOG_UNPACKED_STRUCT:
    case VLOG_PACKED_STRUCT:
    case VLOG_PACKED_TAGGED_UNION:
    case VLOG_UNPACKED_TAGGED_UNION:
    case VLOG_PACKED_UNTAGGED_UNION:
    case VLOG_UNPACKED_UNTAGGED_UNION: return SourceLanguage::SYSTEM_VERILOG;
    default: return std::nullopt;
    }
}

/// Of which kind a type is among those of its kind.
unsigned int detailOf(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
        return static_cast<unsigned int>(static_cast<const RTSeqEnumType&>(type).m_enumKind);
    case ClassId::FLOAT:
        return static_cast<unsigned int>(static_cast<const RTFloatType&>(type).m_floatKind);
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_arrayKind;
    case ClassId::RECORD: return static_cast<const RTRecordType&>(type).m_recordKind;
    default: return 0;
    }
}

/// What a type is made of first, where that may tell its language.
const RTBaseType* firstPart(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF: return static_cast<const RTTypedefType&>(type).m_dataType;
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_elementType;
    case ClassId::RECORD: {
        const auto& members = static_cast<const RTRecordType&>(type).m_memberTypes;
        return members.empty() ? nullptr : members.front();
    }
    default: return nullptr;
    }
}

} // namespace

std::optional<SourceLanguage> languageOfKind(unsigned int kindCode, unsigned int detail,
                                             std::string_view name) {
    switch (kindCode) {
    case ClassId::SEQ_ENUM: return vhdlIf(detail != VLOG_BUILTIN_ENUM);
    case ClassId::INT: return vhdlIf(!hasSystemVerilogName(name));
    case ClassId::FLOAT: return vhdlIf(detail == 0);
    case ClassId::PHYSICAL:
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE: return SourceLanguage::VHDL;
    case ClassId::TYPEDEF: return std::nullopt;
    case ClassId::ARRAY: return languageOfArray(detail);
    case ClassId::RECORD: return languageOfRecord(detail);
    default: return SourceLanguage::SYSTEM_VERILOG;
    }
}

SourceLanguage languageOf(const RTBaseType& type) {
    const RTBaseType* current = &type;
    for (int i = 0; i < LANGUAGE_CHAIN_LIMIT && current != nullptr; ++i) {
        const unsigned int kind = current->GetClassId();
        const bool hasTellingName = kind == ClassId::INT && current->m_name != nullptr;
        const auto name = hasTellingName ? std::string_view(current->m_name) : std::string_view();
        if (const auto language = languageOfKind(kind, detailOf(*current), name))
            return *language;
        current = firstPart(*current);
    }
    return SourceLanguage::VHDL;
}

const char* nameOf(SourceLanguage language) {
    return language == SourceLanguage::VHDL ? "VHDL" : "SystemVerilog";
}

} // namespace Inspect
