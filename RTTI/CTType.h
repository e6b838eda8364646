#pragma once

#include "RTTI/RTType.h"

namespace RTTI {

/// The common base of the compile-time types, which a compiler builds from a name and type ids
/// instead of reading them from a file. Objects cannot be destroyed through a pointer to it; use
/// their run-time class.
///
/// Each compile-time class is its run-time class plus constructors. These copy the name (a null
/// name stays null) and resolve no ids. The code that builds a type owns it and fills in its links,
/// sizes, constraints and members (see TypeFile/TypeBuilding.h). The arrays of variable size do not
/// derive from CTBaseType.
class RTTI_EXPORT CTBaseType {
public:
    /// The class as one of the `ClassId` constants, the same as for the run-time class. Constant
    /// time.
    virtual unsigned int GetClassId() const = 0;

protected:
    ~CTBaseType() = default;
};

/// An enumeration whose literals have the values 0, 1, 2, ..., as a compiler builds it.
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

    /// An access type that designates the type with the id `refTypeId`.
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

    /// A file whose elements have the type with the id `refTypeId`.
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

    /// An array with one dimension. The ids are those of its element type and index type.
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
    /// An array whose elements have the type with the id `elementTypeId`.
    CTDynamicArrayType(const char* name, unsigned int elementTypeId);
    unsigned int GetClassId() const override;
};

/// A SystemVerilog queue, as a compiler builds it.
class RTTI_EXPORT CTQueueType : public RTQueueType {
public:
    /// A queue whose elements have the type with the id `elementTypeId`.
    CTQueueType(const char* name, unsigned int elementTypeId);
    unsigned int GetClassId() const override;
};

/// A SystemVerilog associative array, as a compiler builds it.
class RTTI_EXPORT CTAssocArrayType : public RTAssocArrayType {
public:
    /// An array whose elements and indices have the types with these ids.
    CTAssocArrayType(const char* name, unsigned int elementTypeId, unsigned int indexTypeId);
    unsigned int GetClassId() const override;
};

} // namespace RTTI
