#include "tests/support/TypeDescription.h"

#include <sstream>
#include <string>
#include <vector>

namespace RTTITest {

namespace {

/// Puts the fields of a loaded type into the words that the reference loader uses.
class Describer {
public:
    Describer(const RTTI::RTBaseType& type, const SlotOf* slots) : m_type(type), m_slots(slots) {}

    Description describe() {
        add("kind", m_type.GetClassId());
        add("m_name", m_type.m_name == nullptr ? "(null)" : m_type.m_name);
        add("m_flags", m_type.m_flags);
        body();
        return m_out;
    }

private:
    template <typename Type> const Type& as() const { return dynamic_cast<const Type&>(m_type); }

    template <typename T> void add(const char* field, const T& value) {
        std::ostringstream text;
        text << field << '=' << value;
        m_out.push_back(text.str());
    }

    void link(const char* field, const RTTI::RTBaseType* target) {
        if (m_slots == nullptr)
            return;
        const auto slot = m_slots->find(target);
        if (target != nullptr && slot == m_slots->end())
            add(field, "an object that is in no slot");
        else
            add(field, linkText(target == nullptr ? Link() : Link(slot->second)));
    }

    void constraint(const RTTI::FullConstraints& c) {
        std::ostringstream text;
        text << c.si << ' ' << c.ei << ' ' << c.dir;
        add("constraint", text.str());
    }

    void constraints(const std::vector<RTTI::FullConstraints>& all) {
        add("constraints", all.size());
        for (const RTTI::FullConstraints& c : all)
            constraint(c);
    }

    void seqEnum(const RTTI::RTSeqEnumType& type) {
        add("m_valueEncoding", static_cast<int>(type.m_valueEncoding));
        add("m_enumKind", static_cast<int>(type.m_enumKind));
        for (const char* name : type.m_enumeratorNames)
            add("enumerator", name);
        add("m_valueSize", type.m_valueSize);
    }

    void discreteEnum(const RTTI::RTDiscreteEnumType& type) {
        add("m_baseTypeId", type.m_baseTypeId);
        link("m_baseType", type.m_baseType);
        add("m_valueSize", type.m_valueSize);
        for (const RTTI::t_enumNameAndValuePair& pair : type.m_enumerators)
            add("enumerator", pair.enumName + " " + hexText({pair.value, type.m_valueSize}));
        constraints(type.m_constraints);
    }

    void real(const RTTI::RTFloatType& type) {
        add("m_floatKind", type.m_floatKind);
        add("m_left", bitsText(type.m_left));
        add("m_right", bitsText(type.m_right));
        add("m_direction", type.m_direction);
    }

    void physical(const RTTI::RTPhysicalType& type) {
        for (const RTTI::t_unitNameAndValuePair& pair : type.m_units)
            add("unit", pair.unitName + " " + std::to_string(pair.value));
    }

    void typedefType(const RTTI::RTTypedefType& type) {
        add("m_dataTypeId", type.m_dataTypeId);
        link("m_dataType", type.m_dataType);
        constraints(type.m_constraints);
    }

    template <typename Type> void reference(const Type& type) {
        add("m_refTypeId", type.m_refTypeId);
        add("m_alignment", type.m_alignment);
        add("m_valueSize", type.m_valueSize);
        link("m_refType", type.m_refType);
    }

    void array(const RTTI::RTArrayType& type) {
        add("m_arrayKind", static_cast<unsigned int>(type.m_arrayKind));
        add("m_elementTypeId", type.m_elementTypeId);
        link("m_elementType", type.m_elementType);
        for (const unsigned int id : type.m_indexTypeIds)
            add("indexId", id);
        constraints(type.m_constraints);
        add("m_svTypeId", type.m_svTypeId);
    }

    void container(const RTTI::RTAbstractArrayType& type) {
        add("m_elementTypeId", type.m_elementTypeId);
        link("m_elementType", type.m_elementType);
        add("m_svTypeId", type.m_svTypeId);
    }

    void assocArray(const RTTI::RTAssocArrayType& type) {
        container(type);
        add("m_indexTypeId", type.m_indexTypeId);
        link("m_indexType", type.m_indexType);
    }

    void members(const RTTI::RTAggregateType& type) {
        for (const RTTI::RTAggregateType::t_Member* member : type.m_members) {
            add("member",
                std::string(member->m_memberName) + " " + std::to_string(member->m_typeId));
            constraints(member->m_constraints);
            if (const auto* own = dynamic_cast<const RTTI::RTClassType::t_ClassMember*>(member))
                add("m_memberFlag", own->m_memberFlag);
        }
    }

    void memberTypes(const RTTI::RTAggregateType& type) {
        for (const RTTI::RTBaseType* target : type.m_memberTypes)
            link("memberType", target);
    }

    void record(const RTTI::RTRecordType& type) {
        add("m_recordKind", static_cast<unsigned int>(type.m_recordKind));
        members(type);
        add("m_svTypeId", type.m_svTypeId);
        memberTypes(type);
    }

    void classType(const RTTI::RTClassType& type) {
        add("m_baseClassTypeId", type.m_baseClassTypeId);
        link("m_baseClass", type.m_baseClass);
        add("m_svTypeId", type.m_svTypeId);
        members(type);
        memberTypes(type);
    }

    void body() {
        switch (m_type.GetClassId()) {
        case SEQ_ENUM_KIND: return seqEnum(as<RTTI::RTSeqEnumType>());
        case DISCRETE_ENUM_KIND: return discreteEnum(as<RTTI::RTDiscreteEnumType>());
        case INT_KIND: return constraint(as<RTTI::RTIntType>().m_constraint);
        case FLOAT_KIND: return real(as<RTTI::RTFloatType>());
        case TYPEDEF_KIND: return typedefType(as<RTTI::RTTypedefType>());
        case ACCESS_KIND: return reference(as<RTTI::RTAccessType>());
        case CHANDLE_KIND: return static_cast<void>(as<RTTI::RTCHandle>());
        case EVENT_KIND: return add("m_eventKind", as<RTTI::RTEventType>().m_eventKind);
        case FILE_KIND: return reference(as<RTTI::RTFileType>());
        case PHYSICAL_KIND: return physical(as<RTTI::RTPhysicalType>());
        case ARRAY_KIND: return array(as<RTTI::RTArrayType>());
        case RECORD_KIND: return record(as<RTTI::RTRecordType>());
        case DYNAMIC_ARRAY_KIND: return container(as<RTTI::RTDynamicArrayType>());
        case QUEUE_KIND: return container(as<RTTI::RTQueueType>());
        case ASSOC_ARRAY_KIND: return assocArray(as<RTTI::RTAssocArrayType>());
        case CLASS_KIND: return classType(as<RTTI::RTClassType>());
        case STRING_KIND: return static_cast<void>(as<RTTI::RTStringType>());
        case WILDCARD_KIND: return static_cast<void>(as<RTTI::RTWildCardType>());
        default: return add("class", "unknown");
        }
    }

    const RTTI::RTBaseType& m_type;
    const SlotOf* m_slots;
    Description m_out;
};

} // namespace

Description describe(const RTTI::RTBaseType& type, const SlotOf& slots) {
    return Describer(type, &slots).describe();
}

Description describeFields(const RTTI::RTBaseType& type) {
    return Describer(type, nullptr).describe();
}

} // namespace RTTITest
