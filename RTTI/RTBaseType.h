#pragma once

#include "RTTI/Export.h"
#include "RTTI/TypeFileFormat.h"

#include <vector>

namespace Brakel_tolv {
template <typename Constraint> class ConstraintStack;
}

namespace RTTI {

class RTTypeVisitor;

/// Kind of an array. A value outside the list is kept as the type file gives it.
enum ArrayKind : unsigned int {
    ARRAY_KIND_INVALID = 0xA00000,
    VHDL_ARRAY = 0xA00001,
    VLOG_FIXED_UNPACKED_ARRAY = 0xA00002,
    VLOG_FIXED_PACKED_ARRAY = 0xA00003,
    VLOG_DYNAMIC_ARRAY = 0xA00004,
    VLOG_ASSOCIATIVE_ARRAY = 0xA00005,
    VLOG_QUEUE = 0xA00006,
    BYTE_UNPADDED_ARRAY = 0xA00007
};

/// Kind of a record, struct or union. A value outside the list is kept as the type file gives it.
enum RecordKind : unsigned int {
    RECORD_KIND_INVALID = 0xB0000,
    VHDL_RECORD = 0xB0001,
    VLOG_UNPACKED_STRUCT = 0xB0002,
    VLOG_PACKED_STRUCT = 0xB0003,
    VLOG_PACKED_TAGGED_UNION = 0xB0004,
    VLOG_UNPACKED_TAGGED_UNION = 0xB0005,
    VLOG_PACKED_UNTAGGED_UNION = 0xB0006,
    VLOG_UNPACKED_UNTAGGED_UNION = 0xB0007,
    BYTE_UNPADDED_STRUCT = 0xB0008
};

/// Kind of a sequential enumeration. A value outside the list is kept as the type file gives it.
enum EnumKind : int {
    INVALID_ENUM = 0,
    VLOG_BUILTIN_ENUM = 1,
    VHDL_BIT_ENUM = 2,
    VHDL_STD_LOGIC_ENUM = 3,
    VHDL_CHAR_ENUM = 4,
    VHDL_OTHER_ENUM = 5
};

/// How a value lies in the simulator's memory.
enum ValueEncoding : int {
    ENCODING_4_STATE = 0,
    ENCODING_2_STATE = 1,
    ENCODING_BYTE = 2,
    ENCODING_UNPADDED_BYTE = 3
};

/// One index range. The same 12 bytes in memory and in the type file.
struct FullConstraints {
    int si = 0;  ///< Left bound, as written in the source.
    int ei = 0;  ///< Right bound.
    int dir = 0; ///< 1 for `to`, 0 for `downto`, -2 where the range stands open.
};
static_assert(sizeof(FullConstraints) == TypeFileFormat::CONSTRAINT_SIZE);

/// A data type of the simulated design; the root of all run-time type classes.
///
/// A type that was loaded belongs to its RTTypeManager, and so do the types that it points to:
/// every link from one type to another is a plain pointer that nobody deletes through. A type owns
/// its name, its vectors and its member records. Fields are public and are read directly; once a
/// type is loaded nothing but its SV type id changes. The order of the virtual operations and of
/// the fields is a binary interface.
///
/// Once its manager has loaded a type and all that it leads to, any number of threads may call its
/// constant member functions at the same time, `setSVTypeId` included, with a ConstraintStack of
/// their own each.
class RTTI_EXPORT RTBaseType {
public:
    /// Without a name.
    RTBaseType() = default;

    /// Copies `name` into an array of its own; a null name stays null.
    explicit RTBaseType(const char* name);

    RTBaseType(const RTBaseType&) = delete;
    RTBaseType& operator=(const RTBaseType&) = delete;

    /// The class as a number of `ClassId`. Constant time.
    virtual unsigned int GetClassId() const;

    virtual ~RTBaseType();

    /// Calls the visitor's overload for this class and returns its result. Typedefs are not looked
    /// through. Constant time, besides what the visitor does; what it throws passes through.
    virtual bool accept(RTTypeVisitor& visitor) const = 0;

    /// How a value is encoded: for most classes "Unpadded-Byte" if bit 0x10 of the flags is set,
    /// else "Byte". Constant time for scalars; else each type below is looked at once, and
    /// std::bad_alloc can come out. Asking a class can leave a mark behind: see RTClassType.
    virtual ValueEncoding getValueEncoding() const;

    /// This type; for a typedef with `keepTypedefs` false, the first type behind it that is none.
    /// Grows with the length of the chain of typedefs.
    virtual const RTBaseType* getSelf(bool keepTypedefs) const;

    /// Stores the SystemVerilog type id where the class has room for one, else does nothing.
    virtual void setSVTypeId(int svTypeId) const;

    /// The SystemVerilog type id, -99 for none. Constant time; for a typedef as `getSelf`.
    virtual int getSVTypeId() const;

    /// Bytes that one value takes; 0 where the type does not record it. Constant time.
    virtual unsigned int getValueSize() const;

    /// Appends to `out` one range for each array dimension in and below this type. `stack` holds
    /// the constraints of the levels above (normally none) and is left as it was, apart from the
    /// entries that were used up. Grows with the types passed and the ranges appended; throws
    /// std::bad_alloc alone.
    virtual void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                         std::vector<FullConstraints>& out) const;

    char* m_name = nullptr;   ///< Zero-terminated, owned (array new); may be null.
    unsigned int m_flags = 0; ///< As in the record; only bit 0x10 means something here.
};

} // namespace RTTI
