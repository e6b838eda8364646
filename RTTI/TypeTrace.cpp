#include "RTTI/TypeDeserializer.h"

#include <exception>
#include <iostream>
#include <locale>
#include <sstream>

namespace RTTI {

namespace {

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

void TypeDeserializer::traceConstraint(const FullConstraints& constraint) {
    trace("** constraints : si=", constraint.si, nullptr, false);
    trace(", ei=", constraint.ei, nullptr, false);
    trace(", dir=", constraint.dir, nullptr, true);
}

void TypeDeserializer::traceRecordBegin(unsigned int typeId) {
    trace(nullptr, SEPARATOR, nullptr, true);
    trace("**** Type Id  = ", typeId, "  begin **** ", true);
}

void TypeDeserializer::traceRecordEnd(unsigned int typeId) {
    trace("**** Type Id  = ", typeId, "  end **** ", true);
    trace(nullptr, SEPARATOR, nullptr, true);
}

} // namespace RTTI
