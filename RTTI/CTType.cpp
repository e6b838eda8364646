#include "RTTI/CTType.h"

namespace RTTI {

CTTypedefType::CTTypedefType(const char* name, unsigned int dataTypeId) : RTTypedefType(name) {
    m_dataTypeId = dataTypeId;
}

CTAccessType::CTAccessType(const char* name, unsigned int refTypeId) : RTAccessType(name) {
    m_refTypeId = refTypeId;
}

CTFileType::CTFileType(const char* name, unsigned int refTypeId) : RTFileType(name) {
    m_refTypeId = refTypeId;
}

CTArrayType::CTArrayType(const char* name, ArrayKind kind, unsigned int elementTypeId,
                         unsigned int indexTypeId)
    : RTArrayType(name) {
    m_arrayKind = kind;
    m_elementTypeId = elementTypeId;
    m_indexTypeIds.push_back(indexTypeId);
}

CTDynamicArrayType::CTDynamicArrayType(const char* name, unsigned int elementTypeId)
    : RTDynamicArrayType(name) {
    m_elementTypeId = elementTypeId;
}

CTQueueType::CTQueueType(const char* name, unsigned int elementTypeId) : RTQueueType(name) {
    m_elementTypeId = elementTypeId;
}

CTAssocArrayType::CTAssocArrayType(const char* name, unsigned int elementTypeId,
                                   unsigned int indexTypeId)
    : RTAssocArrayType(name) {
    m_elementTypeId = elementTypeId;
    m_indexTypeId = indexTypeId;
}

unsigned int CTSeqEnumType::GetClassId() const { return ClassId::SEQ_ENUM; }
unsigned int CTDiscreteEnumType::GetClassId() const { return ClassId::DISCRETE_ENUM; }
unsigned int CTIntType::GetClassId() const { return ClassId::INT; }
unsigned int CTFloatType::GetClassId() const { return ClassId::FLOAT; }
unsigned int CTTypedefType::GetClassId() const { return ClassId::TYPEDEF; }
unsigned int CTAccessType::GetClassId() const { return ClassId::ACCESS; }
unsigned int CTEventType::GetClassId() const { return ClassId::EVENT; }
unsigned int CTFileType::GetClassId() const { return ClassId::FILE_TYPE; }
unsigned int CTPhysicalType::GetClassId() const { return ClassId::PHYSICAL; }
unsigned int CTArrayType::GetClassId() const { return ClassId::ARRAY; }
unsigned int CTRecordType::GetClassId() const { return ClassId::RECORD; }
unsigned int CTDynamicArrayType::GetClassId() const { return ClassId::DYNAMIC_ARRAY; }
unsigned int CTQueueType::GetClassId() const { return ClassId::QUEUE; }
unsigned int CTAssocArrayType::GetClassId() const { return ClassId::ASSOC_ARRAY; }

} // namespace RTTI
