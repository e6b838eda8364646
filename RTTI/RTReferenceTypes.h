#pragma once

#include "RTTI/RTBaseType.h"

#include <vector>

namespace RTTI {

/// A named alias of another type (VHDL subtype, SystemVerilog typedef) that can narrow it.
class RTTI_EXPORT RTTypedefType : public RTBaseType {
public:
    /// Of no type.
    using RTBaseType::RTBaseType;
    RTTypedefType() = default;
    ~RTTypedefType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// The aliased type's encoding; without one, what the flags say.
    ValueEncoding getValueEncoding() const override;

    /// Without an aliased type, null when typedefs are not kept.
    const RTBaseType* getSelf(bool keepTypedefs) const override;

    /// The aliased type's id. Setting one on a typedef has no effect.
    int getSVTypeId() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    unsigned int m_dataTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    const RTBaseType* m_dataType = nullptr;                 ///< Null where there is none.
    std::vector<FullConstraints> m_constraints; ///< What the alias adds, in record order.
};

/// A VHDL access type.
class RTTI_EXPORT RTAccessType : public RTBaseType {
public:
    /// Designates no type.
    using RTBaseType::RTBaseType;
    RTAccessType() = default;
    ~RTAccessType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    unsigned int getValueSize() const override;

    unsigned int m_refTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    const RTBaseType* m_refType = nullptr; ///< The designated type; it may lead back here.
    unsigned int m_alignment = 0;          ///< Bytes.
    unsigned int m_valueSize = 0;          ///< Bytes.
};

/// A VHDL file type.
class RTTI_EXPORT RTFileType : public RTBaseType {
public:
    /// Without an element type.
    using RTBaseType::RTBaseType;
    RTFileType() = default;
    ~RTFileType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    unsigned int getValueSize() const override;

    unsigned int m_refTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    const RTBaseType* m_refType = nullptr;                 ///< The type of the file's elements.
    unsigned int m_alignment = 0;                          ///< Bytes.
    unsigned int m_valueSize = 0;                          ///< Bytes.
};

} // namespace RTTI
