#pragma once

#include "RTTI/RTBaseType.h"

#include <string>
#include <vector>

namespace RTTI {

/// What the two enumeration classes have in common. The loader never makes one.
class RTTI_EXPORT RTEnumType : public RTBaseType {
public:
    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;
};

/// An enumeration whose literals stand for 0, 1, 2, ... in the order of their declaration.
class RTTI_EXPORT RTSeqEnumType : public RTEnumType {
public:
    RTSeqEnumType() = default;
    ~RTSeqEnumType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// The encoding that the record gives, whatever the flags say.
    ValueEncoding getValueEncoding() const override;
    unsigned int getValueSize() const override;

    /// The literals; the index is the value. Owned (array new); null entries are skipped on
    /// release.
    std::vector<char*> m_enumeratorNames;
    EnumKind m_enumKind = INVALID_ENUM;            ///< Which of the languages' enumerations.
    ValueEncoding m_valueEncoding = ENCODING_BYTE; ///< As the record gives it.
    unsigned int m_valueSize = 0;                  ///< Bytes of one value.

    unsigned int m_reservedNumber = 0; ///< Not used.
    void* m_reservedPointer = nullptr; ///< Not used.
};

/// A literal of a discrete enumeration. Its value array belongs to the enumeration, which knows its
/// length and releases it.
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

    /// The base type's encoding; without a base type, what the flags say.
    ValueEncoding getValueEncoding() const override;
    unsigned int getValueSize() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    unsigned int m_baseTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.
    const RTBaseType* m_baseType = nullptr;                 ///< Null where there is none.
    std::vector<t_enumNameAndValuePair> m_enumerators;      ///< In record order.
    unsigned int m_valueSize = 0;                           ///< Bytes of each literal's value.
    std::vector<FullConstraints> m_constraints;             ///< What narrows the base type.
};

} // namespace RTTI
