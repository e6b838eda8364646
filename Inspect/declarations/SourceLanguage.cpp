#include "Inspect/declarations/SourceLanguage.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Inspect {

using namespace RTTI;

namespace {

/// What kinds without a language are made of is followed through this many types. A loader does not
/// follow longer chains of typedefs either.
constexpr int CHAIN_LIMIT = 1000;

bool hasSystemVerilogName(const RTBaseType& integer) {
    static constexpr std::string_view names[] = {"byte", "shortint", "int", "longint"};
    return integer.m_name != nullptr &&
           std::find(std::begin(names), std::end(names), integer.m_name) != std::end(names);
}

/// A step on the way to a type whose kind tells the language: the answer, or the next type. With
/// neither, the chain leads nowhere.
struct Step {
    bool isKnown = false;
    SourceLanguage language = SourceLanguage::VHDL;
    const RTBaseType* next = nullptr;
};

Step vhdlIf(bool isVhdl) {
    return {true, isVhdl ? SourceLanguage::VHDL : SourceLanguage::SYSTEM_VERILOG, nullptr};
}

Step follow(const RTBaseType* next) { return {false, SourceLanguage::VHDL, next}; }

Step arrayStep(const RTArrayType& array) {
    switch (array.m_arrayKind) {
    case VHDL_ARRAY: return vhdlIf(true);
    case VLOG_FIXED_UNPACKED_ARRAY:
    case VLOG_FIXED_PACKED_ARRAY:
    case VLOG_DYNAMIC_ARRAY:
    case VLOG_ASSOCIATIVE_ARRAY:
    case VLOG_QUEUE: return vhdlIf(false);
    default: return follow(array.m_elementType);
    }
}

Step recordStep(const RTRecordType& record) {
    switch (record.m_recordKind) {
    case VHDL_RECORD: return vhdlIf(true);
    case VLOG_UNPACKED_STRUCT:
    case VLOG_PACKED_STRUCT:
    case VLOG_PACKED_TAGGED_UNION:
    case VLOG_UNPACKED_TAGGED_UNION:
    case VLOG_PACKED_UNTAGGED_UNION:
    case VLOG_UNPACKED_UNTAGGED_UNION: return vhdlIf(false);
    default: return follow(record.m_memberTypes.empty() ? nullptr : record.m_memberTypes.front());
    }
}

Step step(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
        return vhdlIf(static_cast<const RTSeqEnumType&>(type).m_enumKind != VLOG_BUILTIN_ENUM);
    case ClassId::INT: return vhdlIf(!hasSystemVerilogName(type));
    case ClassId::FLOAT: return vhdlIf(static_cast<const RTFloatType&>(type).m_floatKind == 0);
    case ClassId::PHYSICAL:
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE: return vhdlIf(true);
    case ClassId::TYPEDEF: return follow(static_cast<const RTTypedefType&>(type).m_dataType);
    case ClassId::ARRAY: return arrayStep(static_cast<const RTArrayType&>(type));
    case ClassId::RECORD: return recordStep(static_cast<const RTRecordType&>(type));
    default: return vhdlIf(false);
    }
}

} // namespace

SourceLanguage languageOf(const RTBaseType& type) {
    const RTBaseType* current = &type;
    for (int i = 0; i < CHAIN_LIMIT && current != nullptr; ++i) {
        const Step taken = step(*current);
        if (taken.isKnown)
            return taken.language;
        current = taken.next;
    }
    return SourceLanguage::VHDL;
}

const char* nameOf(SourceLanguage language) {
    return language == SourceLanguage::VHDL ? "VHDL" : "SystemVerilog";
}

} // namespace Inspect
