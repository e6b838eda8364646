#include "RTTI/RTType.h"

#include "RTTI/OwnedName.h"

namespace RTTI {

using TypeFileFormat::NO_TYPE_ID;

RTBaseType::RTBaseType(const char* name) : m_name(name != nullptr ? copyOfName(name) : nullptr) {}

RTBaseType::~RTBaseType() { delete[] m_name; }

RTSeqEnumType::~RTSeqEnumType() {
    for (const char* name : m_enumeratorNames)
        delete[] name;
}

RTDiscreteEnumType::~RTDiscreteEnumType() {
    for (const t_enumNameAndValuePair& enumerator : m_enumerators)
        delete[] enumerator.value;
}

// Types that refer to others by id lose the id, so that a type used after its end shows.

RTTypedefType::~RTTypedefType() { m_dataTypeId = NO_TYPE_ID; }

RTAccessType::~RTAccessType() { m_refTypeId = NO_TYPE_ID; }

RTFileType::~RTFileType() { m_refTypeId = NO_TYPE_ID; }

RTArrayType::~RTArrayType() { m_elementTypeId = NO_TYPE_ID; }

RTAggregateType::t_Member::~t_Member() { delete[] m_memberName; }

RTAggregateType::~RTAggregateType() {
    for (const t_Member* member : m_members)
        delete member;
}

unsigned int RTBaseType::GetClassId() const { return ClassId::BASE_TYPE; }
unsigned int RTEnumType::GetClassId() const { return ClassId::ENUM; }
unsigned int RTSeqEnumType::GetClassId() const { return ClassId::SEQ_ENUM; }
unsigned int RTDiscreteEnumType::GetClassId() const { return ClassId::DISCRETE_ENUM; }
unsigned int RTIntType::GetClassId() const { return ClassId::INT; }
unsigned int RTFloatType::GetClassId() const { return ClassId::FLOAT; }
unsigned int RTTypedefType::GetClassId() const { return ClassId::TYPEDEF; }
unsigned int RTAccessType::GetClassId() const { return ClassId::ACCESS; }
unsigned int RTCHandle::GetClassId() const { return ClassId::CHANDLE; }
unsigned int RTEventType::GetClassId() const { return ClassId::EVENT; }
unsigned int RTFileType::GetClassId() const { return ClassId::FILE_TYPE; }
unsigned int RTPhysicalType::GetClassId() const { return ClassId::PHYSICAL; }
unsigned int RTArrayType::GetClassId() const { return ClassId::ARRAY; }
unsigned int RTRecordType::GetClassId() const { return ClassId::RECORD; }
unsigned int RTAbstractArrayType::GetClassId() const { return ClassId::ABSTRACT_ARRAY; }
unsigned int RTDynamicArrayType::GetClassId() const { return ClassId::DYNAMIC_ARRAY; }
unsigned int RTQueueType::GetClassId() const { return ClassId::QUEUE; }
unsigned int RTAssocArrayType::GetClassId() const { return ClassId::ASSOC_ARRAY; }
unsigned int RTAggregateType::getClassId() const { return ClassId::AGGREGATE; }
unsigned int RTClassType::GetClassId() const { return ClassId::CLASS; }
unsigned int RTStringType::GetClassId() const { return ClassId::STRING; }
unsigned int RTWildCardType::GetClassId() const { return ClassId::WILDCARD; }

} // namespace RTTI
