#pragma once

#include "RTTI/RTBaseType.h"

#include <vector>

namespace RTTI {

/// An array of fixed shape, in either language. One object holds all of its dimensions.
class RTTI_EXPORT RTArrayType : public RTBaseType {
public:
    /// An array without dimensions and of kind 0.
    using RTBaseType::RTBaseType;
    RTArrayType() = default;
    ~RTArrayType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// For SystemVerilog packed and unpacked arrays: the encoding of the element type, or "Byte" if
    /// there is none. For unpadded byte arrays: "Unpadded-Byte". For every other kind: "Byte".
    ValueEncoding getValueEncoding() const override;
    void setSVTypeId(int svTypeId) const override;
    int getSVTypeId() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    ArrayKind m_arrayKind = static_cast<ArrayKind>(0);         ///< 0 until it has been set.
    unsigned int m_elementTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    const RTBaseType* m_elementType = nullptr;                 ///< Null if there is none.
    mutable int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID;    ///< -99 means none.

    /// The id of the index type of each dimension, leftmost first. Look the types up in the
    /// manager.
    std::vector<unsigned int> m_indexTypeIds;
    std::vector<FullConstraints> m_constraints; ///< In the order of the record.
    std::vector<unsigned int> m_reserved;       ///< Never filled.
};

/// The common base of the SystemVerilog arrays of variable size. One object is one dimension.
class RTTI_EXPORT RTAbstractArrayType : public RTBaseType {
public:
    /// An array without an element type.
    using RTBaseType::RTBaseType;
    RTAbstractArrayType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    void setSVTypeId(int svTypeId) const override;
    int getSVTypeId() const override;

    /// The kind that corresponds to the class. Unlike all other queries, not a const member
    /// function.
    virtual ArrayKind getArrayKind();

    /// The id of the index type; 0xFFFFFFFF if the class has none.
    virtual unsigned int getIndexTypeId() const;

    /// Always 1.
    virtual unsigned int getNumArrayDimensions() const;

    /// The number of dimensions of this array and of the arrays nested in its element type. If
    /// `keepDiscreteEnums` is true, a discrete enumeration on the way ends the count, else its base
    /// type takes its place. If a type on the way is missing, this array's own dimension is not
    /// counted. Takes time proportional to the nesting depth.
    virtual unsigned int getTotalNumDimensions(bool keepDiscreteEnums) const;

    const RTBaseType* m_elementType = nullptr;                 ///< Null if there is none.
    unsigned int m_elementTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    mutable int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID;    ///< -99 means none.
};

/// A SystemVerilog dynamic array.
class RTTI_EXPORT RTDynamicArrayType : public RTAbstractArrayType {
public:
    /// An array without an element type.
    using RTAbstractArrayType::RTAbstractArrayType;
    RTDynamicArrayType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    ArrayKind getArrayKind() override;
};

/// A SystemVerilog queue.
class RTTI_EXPORT RTQueueType : public RTAbstractArrayType {
public:
    /// A queue without an element type.
    using RTAbstractArrayType::RTAbstractArrayType;
    RTQueueType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    ArrayKind getArrayKind() override;
};

/// A SystemVerilog associative array.
class RTTI_EXPORT RTAssocArrayType : public RTAbstractArrayType {
public:
    /// An array without an element type and an index type.
    using RTAbstractArrayType::RTAbstractArrayType;
    RTAssocArrayType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    ArrayKind getArrayKind() override;
    unsigned int getIndexTypeId() const override;

    unsigned int m_indexTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    const RTBaseType* m_indexType = nullptr;                 ///< Null if there is none.
};

} // namespace RTTI
