#pragma once

#include "RTTI/RTType.h"

namespace RTTI {

/// Tells a compile-time type's class. Not the way to destroy one: that is its run-time class.
///
/// The compile-time types are those that a compiler builds by name and type ids instead of reading
/// them from a file. Each is its run-time class with constructors: names are copied, a null name
/// stays null, and no id is resolved; whoever builds the type owns it and fills in its links,
/// sizes, constraints and members (see TypeBuilding.h). The arrays of variable size have no
/// CTBaseType part.
class RTTI_EXPORT CTBaseType {
public:
    /// The class as a number of `ClassId`, the same as that of the run-time class. Constant time.
    virtual unsigned int GetClassId() const = 0;

protected:
    ~CTBaseType() = default;
};

/// An enumeration whose literals stand for 0, 1, 2, ..., as a compiler builds it.
class RTTI_EXPORT CTSeqEnumType : public RTSeqEnumType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// An enumeration with an explicit value for each literal, as a compiler builds it.
class RTTI_EXPORT CTDiscreteEnumType : public RTDiscreteEnumType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// An integer type, as a compiler builds it.
class RTTI_EXPORT CTIntType : public RTIntType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// A real type, as a compiler builds it.
class RTTI_EXPORT CTFloatType : public RTFloatType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// A typedef or subtype, as a compiler builds it.
class RTTI_EXPORT CTTypedefType : public RTTypedefType, public CTBaseType {
public:
    CTTypedefType() = default;

    /// An alias of the type with the id `dataTypeId`.
    CTTypedefType(const char* name, unsigned int dataTypeId);
    unsigned int GetClassId() const override;
};

/// A VHDL access type, as a compiler builds it.
class RTTI_EXPORT CTAccessType : public RTAccessType, public CTBaseType {
public:
    CTAccessType() = default;

    /// Designates the type with the id `refTypeId`.
    CTAccessType(const char* name, unsigned int refTypeId);
    unsigned int GetClassId() const override;
};

/// The SystemVerilog event, as a compiler builds it.
class RTTI_EXPORT CTEventType : public RTEventType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// A VHDL file type, as a compiler builds it.
class RTTI_EXPORT CTFileType : public RTFileType, public CTBaseType {
public:
    CTFileType() = default;

    /// A file of elements of the type with the id `refTypeId`.
    CTFileType(const char* name, unsigned int refTypeId);
    unsigned int GetClassId() const override;
};

/// A VHDL physical type, as a compiler builds it.
class RTTI_EXPORT CTPhysicalType : public RTPhysicalType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// An array of fixed shape, as a compiler builds it.
class RTTI_EXPORT CTArrayType : public RTArrayType, public CTBaseType {
public:
    CTArrayType() = default;

    /// An array of one dimension.
    CTArrayType(const char* name, ArrayKind kind, unsigned int elementTypeId,
                unsigned int indexTypeId);
    unsigned int GetClassId() const override;
};

/// A record, struct or union, as a compiler builds it.
class RTTI_EXPORT CTRecordType : public RTRecordType, public CTBaseType {
public:
    unsigned int GetClassId() const override;
};

/// A SystemVerilog dynamic array, as a compiler builds it.
class RTTI_EXPORT CTDynamicArrayType : public RTDynamicArrayType {
public:
    /// Of elements of the type with the id `elementTypeId`.
    CTDynamicArrayType(const char* name, unsigned int elementTypeId);
    unsigned int GetClassId() const override;
};

/// A SystemVerilog queue, as a compiler builds it.
class RTTI_EXPORT CTQueueType : public RTQueueType {
public:
    /// Of elements of the type with the id `elementTypeId`.
    CTQueueType(const char* name, unsigned int elementTypeId);
    unsigned int GetClassId() const override;
};

/// A SystemVerilog associative array, as a compiler builds it.
class RTTI_EXPORT CTAssocArrayType : public RTAssocArrayType {
public:
    /// Elements and indices are of the types with these ids.
    CTAssocArrayType(const char* name, unsigned int elementTypeId, unsigned int indexTypeId);
    unsigned int GetClassId() const override;
};

} // namespace RTTI
