#pragma once

#include "RTTI/RTBaseType.h"

#include <vector>

namespace RTTI {

/// An array of fixed shape in either language, all of its dimensions in one object.
class RTTI_EXPORT RTArrayType : public RTBaseType {
public:
    /// Without dimensions, of kind 0.
    using RTBaseType::RTBaseType;
    RTArrayType() = default;
    ~RTArrayType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// SystemVerilog packed and unpacked arrays: the element's; "Byte" without an element. Unpadded
    /// byte arrays: "Unpadded-Byte". Every other kind: "Byte".
    ValueEncoding getValueEncoding() const override;
    void setSVTypeId(int svTypeId) const override;
    int getSVTypeId() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    ArrayKind m_arrayKind = static_cast<ArrayKind>(0);         ///< 0 until it is known.
    unsigned int m_elementTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    const RTBaseType* m_elementType = nullptr;                 ///< Null where there is none.
    mutable int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID;    ///< -99 for none.

    /// One index type a dimension, leftmost first; ids alone, to be looked up in the manager.
    std::vector<unsigned int> m_indexTypeIds;
    std::vector<FullConstraints> m_constraints; ///< In record order.
    std::vector<unsigned int> m_reserved;       ///< Never filled.
};

/// What the SystemVerilog arrays of variable size have in common: one dimension an object.
class RTTI_EXPORT RTAbstractArrayType : public RTBaseType {
public:
    /// Without element type.
    using RTBaseType::RTBaseType;
    RTAbstractArrayType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    void setSVTypeId(int svTypeId) const override;
    int getSVTypeId() const override;

    /// The kind that goes with the class. Not a constant member, unlike every other query.
    virtual ArrayKind getArrayKind();

    /// The index type's id; 0xFFFFFFFF where the class has none.
    virtual unsigned int getIndexTypeId() const;

    /// Always 1.
    virtual unsigned int getNumArrayDimensions() const;

    /// Dimensions of this array and of the arrays nested in its element type. A discrete
    /// enumeration on the way is a leaf when `keepDiscreteEnums` is true, else its base type counts
    /// in its place. Where a type on the way is missing, this array's own dimension is not counted.
    /// Grows with the depth of the nesting.
    virtual unsigned int getTotalNumDimensions(bool keepDiscreteEnums) const;

    const RTBaseType* m_elementType = nullptr;                 ///< Null where there is none.
    unsigned int m_elementTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    mutable int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID;    ///< -99 for none.
};

/// A SystemVerilog dynamic array.
class RTTI_EXPORT RTDynamicArrayType : public RTAbstractArrayType {
public:
    /// Without element type.
    using RTAbstractArrayType::RTAbstractArrayType;
    RTDynamicArrayType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    ArrayKind getArrayKind() override;
};

/// A SystemVerilog queue.
class RTTI_EXPORT RTQueueType : public RTAbstractArrayType {
public:
    /// Without element type.
    using RTAbstractArrayType::RTAbstractArrayType;
    RTQueueType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    ArrayKind getArrayKind() override;
};

/// A SystemVerilog associative array.
class RTTI_EXPORT RTAssocArrayType : public RTAbstractArrayType {
public:
    /// Without element and index type.
    using RTAbstractArrayType::RTAbstractArrayType;
    RTAssocArrayType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    ArrayKind getArrayKind() override;
    unsigned int getIndexTypeId() const override;

    unsigned int m_indexTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    const RTBaseType* m_indexType = nullptr;                 ///< Null where there is none.
};

} // namespace RTTI
