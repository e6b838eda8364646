#include "TypeFile/TypeBuilding.h"

#include "OVAT/Counted.h"
#include "RTTI/OwnedName.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/WriteError.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

using OwnedName = std::unique_ptr<char[]>;

[[noreturn]] void refuse(const RTBaseType& type, const FieldPlace& place,
                         const std::string& reason) {
    throw WriteError(NO_TYPE_ID, type.m_name, place.text(), reason);
}

void checkName(const RTBaseType& type, const FieldPlace& place, std::string_view name) {
    if (name.find('\0') != std::string_view::npos)
        refuse(type, place, "there is a zero byte in the name, where a record's names end");
}

template <typename Member>
Member& appendMember(RTAggregateType& type, std::string_view name, unsigned int typeId,
                     std::vector<FullConstraints> constraints) {
    checkName(type, {Field::NAME, Field::MEMBERS, type.m_members.size()}, name);
    auto member = std::make_unique<Member>();
    member->m_memberName = copyOfName(name);
    member->m_typeId = typeId;
    member->m_constraints = std::move(constraints);
    type.m_members.push_back(member.get());
    return *member.release();
}

} // namespace

void setName(RTBaseType& type, std::string_view name) {
    checkName(type, {Field::NAME}, name);
    char* const copy = copyOfName(name);
    delete[] std::exchange(type.m_name, copy);
}

void addLiteral(RTSeqEnumType& type, std::string_view name) {
    checkName(type, {"", Field::LITERALS, type.m_enumeratorNames.size()}, name);
    OwnedName copy(copyOfName(name));
    type.m_enumeratorNames.push_back(copy.get());
    copy.release();
}

void addLiteral(RTDiscreteEnumType& type, std::string_view name, std::string_view value) {
    const std::size_t index = type.m_enumerators.size();
    checkName(type, {Field::NAME, Field::LITERALS, index}, name);
    const bool hasSize = index != 0 || type.m_valueSize != 0;
    if (value.size() > LARGEST_RECORD_SIZE || (hasSize && value.size() != type.m_valueSize))
        refuse(type, {Field::VALUE, Field::LITERALS, index},
               "the value has " + OVAT::counted(value.size(), "byte") +
                   ", and the type's literals have " + std::to_string(type.m_valueSize));
    OwnedName copy(new char[value.size()]);
    std::copy(value.begin(), value.end(), copy.get());
    type.m_enumerators.push_back({std::string(name), copy.get()});
    copy.release();
    type.m_valueSize = static_cast<unsigned int>(value.size());
}

void addUnit(RTPhysicalType& type, std::string_view name, long long value) {
    checkName(type, {Field::NAME, Field::UNITS, type.m_units.size()}, name);
    type.m_units.push_back({std::string(name), value});
}

RTAggregateType::t_Member& addMember(RTRecordType& type, std::string_view name, unsigned int typeId,
                                     std::vector<FullConstraints> constraints) {
    return appendMember<RTAggregateType::t_Member>(type, name, typeId, std::move(constraints));
}

RTClassType::t_ClassMember& addMember(RTClassType& type, std::string_view name, unsigned int typeId,
                                      std::vector<FullConstraints> constraints, bool flag) {
    auto& member =
        appendMember<RTClassType::t_ClassMember>(type, name, typeId, std::move(constraints));
    member.m_memberFlag = flag;
    return member;
}

} // namespace TypeFile
