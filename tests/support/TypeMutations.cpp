#include "tests/support/TypeMutations.h"

#include "TypeFile/TypeBuilding.h"

namespace RTTITest {

using namespace RTTI;

namespace {

constexpr unsigned int NO_TYPE = 0xFFFFFFFF;
constexpr unsigned int FAR_AWAY = 0xFFFFFFF0;

/// No name that a file made at random has.
constexpr char NEW_NAME[] = "a new name";

class Mutations {
public:
    std::vector<TypeMutation> take() { return std::move(m_list); }

    void add(const char* name, std::function<void()> apply) {
        m_list.push_back({name, std::move(apply)});
    }
    template <typename Number> void number(const char* name, Number& field) {
        add(name, [&field] { field = static_cast<Number>(static_cast<int>(field) ^ 1); });
    }
    void reference(const char* name, unsigned int& id) {
        add(name, [&id] { id = id == NO_TYPE ? FAR_AWAY : NO_TYPE; });
    }
    void ranges(std::vector<FullConstraints>& ranges) {
        add("constraints", [&ranges] { ranges.push_back({3, 2, 0}); });
        if (!ranges.empty())
            number("constraints", ranges.back().ei);
    }
    void svTypeId(int& id) {
        add("svTypeId", [&id] { id = id == -1 ? -2 : -1; });
    }

private:
    std::vector<TypeMutation> m_list;
};

void mutateEnums(RTBaseType& type, Mutations& list) {
    if (auto* sequential = dynamic_cast<RTSeqEnumType*>(&type)) {
        list.number("encoding", sequential->m_valueEncoding);
        list.number("enumKind", sequential->m_enumKind);
        list.number("valueSize", sequential->m_valueSize);
        list.add("literals", [=] { TypeFile::addLiteral(*sequential, NEW_NAME); });
    }
    if (auto* discrete = dynamic_cast<RTDiscreteEnumType*>(&type)) {
        list.reference("baseType", discrete->m_baseTypeId);
        list.ranges(discrete->m_constraints);
        if (!discrete->m_enumerators.empty())
            list.add("name", [=] { discrete->m_enumerators.back().enumName = NEW_NAME; });
        if (!discrete->m_enumerators.empty() && discrete->m_valueSize != 0)
            list.add("value", [=] { ++discrete->m_enumerators[0].value[0]; });
    }
}

void mutateScalars(RTBaseType& type, Mutations& list) {
    if (auto* integer = dynamic_cast<RTIntType*>(&type))
        list.number("range", integer->m_constraint.si);
    if (auto* real = dynamic_cast<RTFloatType*>(&type)) {
        list.number("flavour", real->m_floatKind);
        list.add("left", [=] { real->m_left = real->m_left == 12.5 ? 1 : 12.5; });
        list.add("right", [=] { real->m_right = real->m_right == 12.5 ? 1 : 12.5; });
        list.number("direction", real->m_direction);
    }
    if (auto* event = dynamic_cast<RTEventType*>(&type))
        list.number("flavour", event->m_eventKind);
    if (auto* physical = dynamic_cast<RTPhysicalType*>(&type)) {
        list.add("units", [=] { TypeFile::addUnit(*physical, NEW_NAME, 5); });
        if (!physical->m_units.empty())
            list.add("value", [=] { physical->m_units[0].value ^= 1; });
    }
}

template <typename Type> void mutateDesignating(Type& type, Mutations& list) {
    list.reference("refType", type.m_refTypeId);
    list.number("alignment", type.m_alignment);
    list.number("valueSize", type.m_valueSize);
}

void mutateReferring(RTBaseType& type, Mutations& list) {
    if (auto* alias = dynamic_cast<RTTypedefType*>(&type)) {
        list.reference("dataType", alias->m_dataTypeId);
        list.ranges(alias->m_constraints);
    }
    if (auto* access = dynamic_cast<RTAccessType*>(&type))
        mutateDesignating(*access, list);
    if (auto* file = dynamic_cast<RTFileType*>(&type))
        mutateDesignating(*file, list);
    if (auto* array = dynamic_cast<RTArrayType*>(&type)) {
        list.number("arrayKind", array->m_arrayKind);
        list.reference("elementType", array->m_elementTypeId);
        list.ranges(array->m_constraints);
        list.svTypeId(array->m_svTypeId);
        list.add("indexTypes", [=] { array->m_indexTypeIds.push_back(NO_TYPE); });
        if (!array->m_indexTypeIds.empty())
            list.reference("indexTypes[0]", array->m_indexTypeIds[0]);
    }
    if (auto* array = dynamic_cast<RTAbstractArrayType*>(&type)) {
        list.reference("elementType", array->m_elementTypeId);
        list.svTypeId(array->m_svTypeId);
    }
    if (auto* array = dynamic_cast<RTAssocArrayType*>(&type))
        list.reference("indexType", array->m_indexTypeId);
}

void mutateMembers(RTAggregateType& type, Mutations& list) {
    list.svTypeId(type.m_svTypeId);
    if (type.m_members.empty())
        return;
    list.ranges(type.m_members[0]->m_constraints);
    list.reference("type", type.m_members[0]->m_typeId);
    list.add("members", [&type] {
        delete type.m_members.back();
        type.m_members.pop_back();
    });
    if (auto* member = dynamic_cast<RTClassType::t_ClassMember*>(type.m_members[0]))
        list.add("flag", [=] { member->m_memberFlag = !member->m_memberFlag; });
}

} // namespace

std::vector<TypeMutation> mutationsOf(RTBaseType& type) {
    Mutations list;
    list.number("flags", type.m_flags);
    mutateEnums(type, list);
    mutateScalars(type, list);
    mutateReferring(type, list);
    if (auto* record = dynamic_cast<RTRecordType*>(&type)) {
        list.number("recordKind", record->m_recordKind);
        list.add("members", [=] { TypeFile::addMember(*record, NEW_NAME, FAR_AWAY); });
    }
    if (auto* inheriting = dynamic_cast<RTClassType*>(&type)) {
        list.reference("baseClass", inheriting->m_baseClassTypeId);
        list.add("members", [=] { TypeFile::addMember(*inheriting, NEW_NAME, FAR_AWAY); });
    }
    if (auto* aggregate = dynamic_cast<RTAggregateType*>(&type))
        mutateMembers(*aggregate, list);
    return list.take();
}

} // namespace RTTITest
