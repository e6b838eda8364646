#include "RTTI/TypeDeserializer.h"
#include "RTTI/ValueNames.h"

#include <exception>
#include <iostream>
#include <locale>
#include <sstream>

namespace RTTI {

namespace {

/// The name at `index`, or `unknown` for an index outside the table (a negative one wraps).
template <std::size_t N>
const char* nameIn(const char* const (&names)[N], unsigned int index, const char* unknown) {
    return index < N ? names[index] : unknown;
}

constexpr char SEPARATOR[] = "===============================================";

void writeToStandardOutput(const std::string& item, bool flush) {
    try {
        std::cout.write(item.data(), static_cast<std::streamsize>(item.size()));
        if (flush)
            std::cout.flush();
    } catch (const std::exception&) {
        // An output that fails must not end the load.
    }
}

} // namespace

void TypeDeserializer::printDebugInfo(const char* label, const std::string& value, const char* tail,
                                      bool newline) {
    if (!m_debug)
        return;
    std::string item = label != nullptr ? label : "";
    item.append(1, ' ').append(value).append(1, ' ');
    item.append(tail != nullptr ? tail : "").append(1, ' ');
    if (newline)
        item.append(1, '\n');
    writeToStandardOutput(item, newline);
}

template <typename T> const std::string TypeDeserializer::NumberToString(T number) {
    std::ostringstream text;
    text.imbue(std::locale::classic()); // The same text whatever locale the simulator runs in.
    text << number;
    return text.str();
}

template const std::string TypeDeserializer::NumberToString(int);
template const std::string TypeDeserializer::NumberToString(unsigned int);
template const std::string TypeDeserializer::NumberToString(long long);
template const std::string TypeDeserializer::NumberToString(unsigned long long);
template const std::string TypeDeserializer::NumberToString(double);

template <typename T>
void TypeDeserializer::printNumber(const char* label, T number, const char* tail, bool newline) {
    printDebugInfo(label, NumberToString(number), tail, newline);
}

template void TypeDeserializer::printNumber(const char*, int, const char*, bool);
template void TypeDeserializer::printNumber(const char*, unsigned int, const char*, bool);
template void TypeDeserializer::printNumber(const char*, long long, const char*, bool);
template void TypeDeserializer::printNumber(const char*, unsigned long long, const char*, bool);
template void TypeDeserializer::printNumber(const char*, double, const char*, bool);

void TypeDeserializer::printText(const char* label, std::string_view text, const char* tail,
                                 bool newline) {
    printDebugInfo(label, std::string(text), tail, newline);
}

void TypeDeserializer::traceAddress(unsigned int typeId) {
    trace("TypeAddressTable[", typeId, "] = ", false);
    trace(nullptr, m_typeAddresses[typeId], nullptr, true);
}

void TypeDeserializer::traceRecordBegin(unsigned int typeId) {
    trace(nullptr, SEPARATOR, nullptr, true);
    trace("**** Type Id  = ", typeId, "  begin **** ", true);
}

void TypeDeserializer::traceRecordEnd(unsigned int typeId) {
    trace("**** Type Id  = ", typeId, "  end **** ", true);
    trace(nullptr, SEPARATOR, nullptr, true);
}

void TypeDeserializer::traceTypeHead(const char* heading, const RTBaseType& type) {
    trace(nullptr, heading, nullptr, false);
    trace("Type name = ", type.m_name, nullptr, false);
    trace(", flags = ", type.m_flags, " ** ", true);
}

void TypeDeserializer::traceConstraint(const FullConstraints& constraint) {
    trace("** constraints : si=", constraint.si, nullptr, false);
    trace(", ei=", constraint.ei, nullptr, false);
    trace(", dir=", constraint.dir, nullptr, true);
}

/// A count that is negative as a signed number makes a list of which nothing is read.
void TypeDeserializer::traceConstraints(const std::vector<FullConstraints>& constraints) {
    const int count = static_cast<int>(constraints.size());
    for (int i = 0; i < count; ++i) {
        trace(" ++  constraint[ ", i, "]", false);
        traceConstraint(constraints[static_cast<std::size_t>(i)]);
    }
}

void TypeDeserializer::traceFields(const RTSeqEnumType& type) {
    trace("  Encoding: ",
          nameIn(ValueNames::ENCODINGS, static_cast<unsigned int>(type.m_valueEncoding),
                 "<Bad Encoding>"),
          nullptr, true);
    trace("  Kind: ",
          nameIn(ValueNames::ENUM_KINDS, static_cast<unsigned int>(type.m_enumKind), "<Bad Kind>"),
          nullptr, true);
    for (std::size_t i = 0; i < type.m_enumeratorNames.size(); ++i) {
        trace("** Enumerator[", static_cast<unsigned int>(i), "] = ", false);
        trace(nullptr, type.m_enumeratorNames[i], nullptr, true);
    }
    trace("**  Size: ", static_cast<int>(type.m_valueSize), nullptr, true);
}

void TypeDeserializer::traceFields(const RTDiscreteEnumType& type, int count, int valueSize) {
    trace("** Base Type ID = ", type.m_baseTypeId, " ** ", true);
    trace("** Number of enumerators = ", static_cast<unsigned int>(count), " ** ", true);
    trace("** Size of enumerators = ", valueSize, " ** ", true);
    for (std::size_t i = 0; i < type.m_enumerators.size(); ++i)
        traceEnumerator(type.m_enumerators[i], static_cast<unsigned int>(i), type.m_valueSize);
    traceConstraints(type.m_constraints);
}

void TypeDeserializer::traceEnumerator(const t_enumNameAndValuePair& enumerator, unsigned int index,
                                       std::size_t valueSize) {
    trace("** Enumerator[", index, "] = ", false);
    trace(nullptr, std::string_view(enumerator.enumName), " (value, byte by byte = ", false);
    for (std::size_t i = 0; i < valueSize; ++i)
        trace("", static_cast<int>(static_cast<signed char>(enumerator.value[i])), " ", false);
    trace(nullptr, ")", nullptr, true);
}

void TypeDeserializer::traceFields(const RTFloatType& type) {
    trace("** constraints : left=", type.m_left, nullptr, false);
    trace(", right=", type.m_right, nullptr, false);
    trace(", dir=", type.m_direction, nullptr, true);
}

/// All units stand on one line.
void TypeDeserializer::traceFields(const RTPhysicalType& type, int count) {
    trace("** Number of units = ", static_cast<unsigned int>(count), " ** ", true);
    for (std::size_t i = 0; i < type.m_units.size(); ++i) {
        trace("** Unit[", static_cast<unsigned int>(i), "] = ", false);
        trace(nullptr, std::string_view(type.m_units[i].unitName), " value = ", false);
        trace(nullptr, type.m_units[i].value, " ", false);
    }
}

void TypeDeserializer::traceReference(unsigned int typeId, unsigned int alignment,
                                      unsigned int valueSize) {
    trace("** Ref Type Id = ", typeId, " ** ", true);
    trace("** Alignment = ", alignment, " ** ", true);
    trace("** Value Size = ", valueSize, " ** ", true);
}

void TypeDeserializer::traceKindAndElement(const RTArrayType& type) {
    trace("** Array Kind = ",
          nameIn(ValueNames::ARRAY_KINDS, type.m_arrayKind - ARRAY_KIND_INVALID,
                 "ARRAY_KIND_UNKNOWN"),
          " ** ", true);
    trace("** Element Type Id = ", type.m_elementTypeId, " ** ", true);
}

void TypeDeserializer::traceDimensions(const RTArrayType& type) {
    for (std::size_t i = 0; i < type.m_indexTypeIds.size(); ++i) {
        trace("** indexId[", static_cast<unsigned int>(i), "] = ", false);
        trace(nullptr, type.m_indexTypeIds[i], " ** ", true);
    }
    traceConstraints(type.m_constraints);
    if (type.m_svTypeId != TypeFileFormat::NO_SV_TYPE_ID)
        trace("** Array SV Type Id = ", type.m_svTypeId, " ** ", true);
}

void TypeDeserializer::traceKind(const RTRecordType& type) {
    trace("** Record Kind = ",
          nameIn(ValueNames::RECORD_KINDS, type.m_recordKind - RECORD_KIND_INVALID,
                 "RECORD_KIND_UNKNOWN"),
          " ** ", true);
}

void TypeDeserializer::traceMember(const RTAggregateType::t_Member& member) {
    trace("** Member Name = ", member.m_memberName, "", false);
    trace("Member Type Id = ", member.m_typeId, "", false);
    trace(nullptr, "constraints ", " ** ", true);
    traceConstraints(member.m_constraints);
}

} // namespace RTTI
