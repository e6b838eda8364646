#pragma once

#include "RTTI/RTBaseType.h"

#include <string>
#include <vector>

namespace RTTI {

/// The common base of the two enumeration classes. The loader never creates an object of it.
class RTTI_EXPORT RTEnumType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
};

/// An enumeration whose literals have the values 0, 1, 2, ... in the order of declaration.
class RTTI_EXPORT RTSeqEnumType : public RTEnumType {
public:
    RTSeqEnumType() = default;
    ~RTSeqEnumType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// The encoding given in the record; the flags do not matter.
    ValueEncoding getValueEncoding() const override;
    unsigned int getValueSize() const override;

    /// The literals; the index is the value. Owned (array new); null entries are allowed.
    std::vector<char*> m_enumeratorNames;
    EnumKind m_enumKind = INVALID_ENUM; ///< Which enumeration of the two languages it is.
    ValueEncoding m_valueEncoding = ENCODING_BYTE; ///< As given in the record.
    unsigned int m_valueSize = 0;                  ///< The size of a value in bytes.

    unsigned int m_reservedNumber = 0; ///< Not used.
    void* m_reservedPointer = nullptr; ///< Not used.
};

/// A literal of a discrete enumeration. The array with its value belongs to the enumeration, which
/// knows its length and releases it.
struct t_enumNameAndValuePair {
    std::string enumName;  ///< The literal, without its terminating zero byte.
    char* value = nullptr; ///< `m_valueSize` raw bytes (array new), in the order of the record.
};

/// An enumeration over a base type, with an explicit value for each literal.
class RTTI_EXPORT RTDiscreteEnumType : public RTEnumType {
public:
    RTDiscreteEnumType() = default;
    ~RTDiscreteEnumType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// The encoding of the base type. Without a base type, the flags decide.
    ValueEncoding getValueEncoding() const override;
    unsigned int getValueSize() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    unsigned int m_baseTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.
    const RTBaseType* m_baseType = nullptr;                 ///< Null if there is none.
    std::vector<t_enumNameAndValuePair> m_enumerators;      ///< In the order of the record.
    unsigned int m_valueSize = 0;               ///< The size of each literal's value in bytes.
    std::vector<FullConstraints> m_constraints; ///< The ranges that narrow the base type.
};

} // namespace RTTI
