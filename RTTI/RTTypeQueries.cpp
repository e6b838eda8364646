// What a loaded type answers about itself: SV type id, size, the type behind a typedef, dimensions.

#include "RTTI/RTType.h"

#include <atomic>

namespace RTTI {

using namespace TypeFileFormat;

namespace {

// SV type ids are set through constant types, in one thread while another one asks.
void storeShared(int& field, int value) {
    std::atomic_ref<int>(field).store(value, std::memory_order_relaxed);
}
int loadShared(int& field) { return std::atomic_ref<int>(field).load(std::memory_order_relaxed); }

} // namespace

const RTBaseType* RTBaseType::getSelf(bool) const { return this; }
void RTBaseType::setSVTypeId(int) const {}
int RTBaseType::getSVTypeId() const { return NO_SV_TYPE_ID; }
unsigned int RTBaseType::getValueSize() const { return 0; }

int RTStringType::getSVTypeId() const { return STRING_SV_TYPE_ID; }
int RTEventType::getSVTypeId() const { return EVENT_SV_TYPE_ID; }

unsigned int RTSeqEnumType::getValueSize() const { return m_valueSize; }
unsigned int RTDiscreteEnumType::getValueSize() const { return m_valueSize; }
unsigned int RTAccessType::getValueSize() const { return m_valueSize; }
unsigned int RTFileType::getValueSize() const { return m_valueSize; }

namespace {

/// The first type behind `type` that is no typedef; null where a typedef names none.
const RTBaseType* behindTypedefs(const RTBaseType* type) {
    while (type != nullptr && type->GetClassId() == ClassId::TYPEDEF)
        type = static_cast<const RTTypedefType*>(type)->m_dataType;
    return type;
}

} // namespace

const RTBaseType* RTTypedefType::getSelf(bool keepTypedefs) const {
    return keepTypedefs ? this : behindTypedefs(this);
}

int RTTypedefType::getSVTypeId() const {
    const RTBaseType* type = behindTypedefs(this);
    return type != nullptr ? type->getSVTypeId() : RTBaseType::getSVTypeId();
}

void RTArrayType::setSVTypeId(int svTypeId) const { storeShared(m_svTypeId, svTypeId); }
int RTArrayType::getSVTypeId() const { return loadShared(m_svTypeId); }

void RTAbstractArrayType::setSVTypeId(int svTypeId) const { storeShared(m_svTypeId, svTypeId); }
int RTAbstractArrayType::getSVTypeId() const { return loadShared(m_svTypeId); }
ArrayKind RTAbstractArrayType::getArrayKind() { return ARRAY_KIND_INVALID; }
unsigned int RTAbstractArrayType::getIndexTypeId() const { return NO_TYPE_ID; }
unsigned int RTAbstractArrayType::getNumArrayDimensions() const { return 1; }

ArrayKind RTDynamicArrayType::getArrayKind() { return VLOG_DYNAMIC_ARRAY; }
ArrayKind RTQueueType::getArrayKind() { return VLOG_QUEUE; }
ArrayKind RTAssocArrayType::getArrayKind() { return VLOG_ASSOCIATIVE_ARRAY; }
unsigned int RTAssocArrayType::getIndexTypeId() const { return m_indexTypeId; }

void RTAggregateType::setSVTypeId(int svTypeId) const { storeShared(m_svTypeId, svTypeId); }
int RTAggregateType::getSVTypeId() const { return loadShared(m_svTypeId); }

unsigned int RTAbstractArrayType::getTotalNumDimensions(bool keepDiscreteEnums) const {
    unsigned int count = 0;
    const RTBaseType* type = behindTypedefs(m_elementType);
    while (type != nullptr) {
        const unsigned int classId = type->GetClassId();
        if (classId == ClassId::DISCRETE_ENUM && !keepDiscreteEnums) {
            type = behindTypedefs(static_cast<const RTDiscreteEnumType*>(type)->m_baseType);
        } else if (classId == ClassId::ARRAY) {
            const auto* array = static_cast<const RTArrayType*>(type);
            count += static_cast<unsigned int>(array->m_indexTypeIds.size());
            type = behindTypedefs(array->m_elementType);
        } else if (const auto* array = dynamic_cast<const RTAbstractArrayType*>(type)) {
            count += array->getNumArrayDimensions();
            type = behindTypedefs(array->m_elementType);
        } else {
            return count + 1; // This container's own dimension.
        }
    }
    return count;
}

} // namespace RTTI
