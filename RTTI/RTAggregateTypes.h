#pragma once

#include "RTTI/RTBaseType.h"

#include <atomic>
#include <vector>

namespace RTTI {

class KeptMark;

/// What records, structs, unions and classes have in common: named members.
class RTTI_EXPORT RTAggregateType : public RTBaseType {
public:
    /// A member: its name, its type's id and the ranges that narrow its type.
    class RTTI_EXPORT t_Member {
    public:
        t_Member() = default;
        t_Member(const t_Member&) = delete;
        t_Member& operator=(const t_Member&) = delete;
        virtual ~t_Member();

        char* m_memberName = nullptr;               ///< Zero-terminated, owned (array new).
        unsigned int m_typeId = 0;                  ///< Of its type.
        std::vector<FullConstraints> m_constraints; ///< In record order.
    };

    /// Without members.
    using RTBaseType::RTBaseType;
    RTAggregateType() = default;
    ~RTAggregateType() override;

    bool accept(RTTypeVisitor& visitor) const override;
    ValueEncoding getValueEncoding() const override = 0;
    void setSVTypeId(int svTypeId) const override;
    int getSVTypeId() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    /// 0xA0000016 for every aggregate. Not `GetClassId`, which the subclasses answer for
    /// themselves.
    virtual unsigned int getClassId() const;

    mutable int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID; ///< -99 for none.
    std::vector<t_Member*> m_members; ///< Owned, in the order of declaration; may hold null.
    std::vector<const RTBaseType*> m_memberTypes; ///< The type of each member; may hold null.
};

/// A VHDL record, or a SystemVerilog struct or union.
class RTTI_EXPORT RTRecordType : public RTAggregateType {
public:
    /// Without members, of kind 0.
    using RTAggregateType::RTAggregateType;
    RTRecordType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// Structs and unions: "2-State" if every member is, else "4-State". Unpadded byte structs:
    /// "Unpadded-Byte". Everything else: "Byte". Each type below is looked at once, and a struct
    /// that contains itself counts as "2-State" where it comes back.
    ValueEncoding getValueEncoding() const override;

    RecordKind m_recordKind = static_cast<RecordKind>(0); ///< 0 until it is known.
};

/// A SystemVerilog class.
class RTTI_EXPORT RTClassType : public RTAggregateType {
public:
    /// A class member with its flag.
    class RTTI_EXPORT t_ClassMember : public t_Member {
    public:
        bool m_memberFlag = false; ///< Stored, never interpreted.
    };

    /// Without members and base class.
    using RTAggregateType::RTAggregateType;
    RTClassType() = default;
    ~RTClassType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// "2-State" if the base class and every member are, else "4-State"; a class that is reached
    /// again from itself counts as "2-State" there.
    ///
    /// A class that is "4-State" because of its base class answers so once: it stays marked and
    /// answers "2-State" from then on, until it is destroyed. Any number of threads may ask at the
    /// same time; those that ask before the mark is there each get the first answer. Each type
    /// below is looked at once.
    ValueEncoding getValueEncoding() const override;

    /// The base class's ranges first, then the members'. A class that is reached again from itself
    /// adds nothing there.
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    unsigned int m_baseClassTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF for none.

private:
    friend class KeptMark;

    mutable std::atomic<bool> m_isMarked{false}; // In what would be padding: no other field moves.

public:
    const RTBaseType* m_baseClass = nullptr; ///< Null for none.
};

} // namespace RTTI
