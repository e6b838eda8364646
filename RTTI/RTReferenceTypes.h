#pragma once

#include "RTTI/RTBaseType.h"

#include <vector>

namespace RTTI {

/// A named alias of another type (VHDL subtype, SystemVerilog typedef), which can narrow that type.
class RTTI_EXPORT RTTypedefType : public RTBaseType {
public:
    /// An alias of no type.
    using RTBaseType::RTBaseType;
    RTTypedefType() = default;
    ~RTTypedefType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// The encoding of the data type. Without a data type, the flags decide.
    ValueEncoding getValueEncoding() const override;

    /// Null if there is no data type and `keepTypedefs` is false.
    const RTBaseType* getSelf(bool keepTypedefs) const override;

    /// The SystemVerilog type id of the data type. Setting one on a typedef has no effect.
    int getSVTypeId() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    unsigned int m_dataTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    const RTBaseType* m_dataType = nullptr;                 ///< Null if there is none.
    std::vector<FullConstraints> m_constraints; ///< The ranges that the alias adds, in order.
};

/// A VHDL access type.
class RTTI_EXPORT RTAccessType : public RTBaseType {
public:
    /// An access type that designates no type.
    using RTBaseType::RTBaseType;
    RTAccessType() = default;
    ~RTAccessType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    unsigned int getValueSize() const override;

    unsigned int m_refTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    const RTBaseType* m_refType = nullptr; ///< The designated type; may lead back to this one.
    unsigned int m_alignment = 0;          ///< In bytes.
    unsigned int m_valueSize = 0;          ///< In bytes.
};

/// A VHDL file type.
class RTTI_EXPORT RTFileType : public RTBaseType {
public:
    /// A file type without an element type.
    using RTBaseType::RTBaseType;
    RTFileType() = default;
    ~RTFileType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
    unsigned int getValueSize() const override;

    unsigned int m_refTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    const RTBaseType* m_refType = nullptr;                 ///< The type of the file's elements.
    unsigned int m_alignment = 0;                          ///< In bytes.
    unsigned int m_valueSize = 0;                          ///< In bytes.
};

} // namespace RTTI
