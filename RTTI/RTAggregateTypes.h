#pragma once

#include "RTTI/RTBaseType.h"

#include <atomic>
#include <vector>

namespace RTTI {

class KeptMark;

/// The common base of records, structs, unions and classes: types with named members.
class RTTI_EXPORT RTAggregateType : public RTBaseType {
public:
    /// A member: its name, the id of its type and the ranges that narrow that type.
    class RTTI_EXPORT t_Member {
    public:
        t_Member() = default;
        t_Member(const t_Member&) = delete;
        t_Member& operator=(const t_Member&) = delete;
        virtual ~t_Member();

        char* m_memberName = nullptr;               ///< Zero-terminated, owned (array new).
        unsigned int m_typeId = 0;                  ///< The id of its type.
        std::vector<FullConstraints> m_constraints; ///< In the order of the record.
    };

    /// A type without members.
    using RTBaseType::RTBaseType;
    RTAggregateType() = default;
    ~RTAggregateType() override;

    bool accept(RTTypeVisitor& visitor) const override;
    ValueEncoding getValueEncoding() const override = 0;
    void setSVTypeId(int svTypeId) const override;
    int getSVTypeId() const override;
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    /// 0xA0000016 for every aggregate. Do not confuse it with `GetClassId`, which each subclass
    /// overrides.
    virtual unsigned int getClassId() const;

    mutable int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID; ///< -99 means none.
    std::vector<t_Member*> m_members; ///< Owned, in the order of declaration. Entries may be null.
    std::vector<const RTBaseType*> m_memberTypes; ///< The type of each member. Entries may be null.
};

/// A VHDL record, or a SystemVerilog struct or union.
class RTTI_EXPORT RTRecordType : public RTAggregateType {
public:
    /// A type without members and of kind 0.
    using RTAggregateType::RTAggregateType;
    RTRecordType() = default;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// For structs and unions: "2-State" if every member is, else "4-State". For unpadded byte
    /// structs: "Unpadded-Byte". For everything else: "Byte". Each type below is examined once; a
    /// struct that contains itself counts as "2-State" where it recurs.
    ValueEncoding getValueEncoding() const override;

    RecordKind m_recordKind = static_cast<RecordKind>(0); ///< 0 until it has been set.
};

/// A SystemVerilog class.
class RTTI_EXPORT RTClassType : public RTAggregateType {
public:
    /// A class member and its flag.
    class RTTI_EXPORT t_ClassMember : public t_Member {
    public:
        bool m_memberFlag = false; ///< Stored, never interpreted.
    };

    /// A class without members and without a base class.
    using RTAggregateType::RTAggregateType;
    RTClassType() = default;
    ~RTClassType() override;

    unsigned int GetClassId() const override;
    bool accept(RTTypeVisitor& visitor) const override;

    /// "2-State" if the base class and every member are, else "4-State". A class that leads back to
    /// itself counts as "2-State" where it recurs.
    ///
    /// A class that is "4-State" because of its base class says so only once: the call marks it,
    /// and from then on it answers "2-State" until it is destroyed. Any number of threads may ask
    /// at the same time; those that ask before the mark is set each get the first answer. Each type
    /// below is examined once.
    ValueEncoding getValueEncoding() const override;

    /// Appends the ranges of the base class first, then those of the members. A class that leads
    /// back to itself adds nothing where it recurs.
    void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                 std::vector<FullConstraints>& out) const override;

    unsigned int m_baseClassTypeId = TypeFileFormat::NO_TYPE_ID; ///< 0xFFFFFFFF means none.

private:
    friend class KeptMark;

    mutable std::atomic<bool> m_isMarked{false}; // In place of padding: no other field moves.

public:
    const RTBaseType* m_baseClass = nullptr; ///< Null if there is none.
};

} // namespace RTTI
