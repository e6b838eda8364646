#pragma once

#include "RTTI/RTType.h"

namespace RTTI {

/// Tells a compile-time type's class. Not the way to destroy one: that is its run-time class.
class RTTI_EXPORT CTBaseType {
public:
    virtual unsigned int GetClassId() const = 0;

protected:
    ~CTBaseType() = default;
};

// The types that a compiler builds by name and type ids instead of reading them from a file. Each
// is its run-time class with constructors: names are copied, a null name stays null, and no id is
// resolved; whoever builds the type fills in its links, sizes, constraints and members.

class RTTI_EXPORT CTSeqEnumType : public RTSeqEnumType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTDiscreteEnumType : public RTDiscreteEnumType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTIntType : public RTIntType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTFloatType : public RTFloatType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTTypedefType : public RTTypedefType, public CTBaseType {
public:
    CTTypedefType() = default;
    CTTypedefType(const char* name, unsigned int dataTypeId);
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTAccessType : public RTAccessType, public CTBaseType {
public:
    CTAccessType() = default;
    CTAccessType(const char* name, unsigned int refTypeId);
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTEventType : public RTEventType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTFileType : public RTFileType, public CTBaseType {
public:
    CTFileType() = default;
    CTFileType(const char* name, unsigned int refTypeId);
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTPhysicalType : public RTPhysicalType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTArrayType : public RTArrayType, public CTBaseType {
public:
    CTArrayType() = default;

    /// An array of one dimension.
    CTArrayType(const char* name, ArrayKind kind, unsigned int elementTypeId,
                unsigned int indexTypeId);
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTRecordType : public RTRecordType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

// The arrays of variable size have no CTBaseType part.

class RTTI_EXPORT CTDynamicArrayType : public RTDynamicArrayType {
public:
    CTDynamicArrayType(const char* name, unsigned int elementTypeId);
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTQueueType : public RTQueueType {
public:
    CTQueueType(const char* name, unsigned int elementTypeId);
    unsigned int GetClassId() const override;
};

class RTTI_EXPORT CTAssocArrayType : public RTAssocArrayType {
public:
    CTAssocArrayType(const char* name, unsigned int elementTypeId, unsigned int indexTypeId);
    unsigned int GetClassId() const override;
};

} // namespace RTTI
