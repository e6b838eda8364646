#pragma once

#include "RTTI/Export.h"
#include "RTTI/TypeFileFormat.h"

#include <vector>

namespace Brakel_tolv {
template <typename Constraint> class ConstraintStack;
}

namespace RTTI {

class RTTypeVisitor;

/// The kind of an array. Other values are kept as the type file has them.
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

/// The kind of a record, struct or union. Other values are kept as the type file has them.
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

/// The kind of a sequential enumeration. Other values are kept as the type file has them.
enum EnumKind : int {
    INVALID_ENUM = 0,
    VLOG_BUILTIN_ENUM = 1,
    VHDL_BIT_ENUM = 2,
    VHDL_STD_LOGIC_ENUM = 3,
    VHDL_CHAR_ENUM = 4,
    VHDL_OTHER_ENUM = 5
};

/// How a value is laid out in the simulator's memory.
enum ValueEncoding : int {
    ENCODING_4_STATE = 0,
    ENCODING_2_STATE = 1,
    ENCODING_BYTE = 2,
    ENCODING_UNPADDED_BYTE = 3
};

/// An index range. Its 12 bytes are the same in memory and in the type file.
struct FullConstraints {
    int si = 0;  ///< Left bound, as written in the source.
    int ei = 0;  ///< Right bound.
    int dir = 0; ///< 1 for `to`, 0 for `downto`, -2 for an open range.
};
static_assert(sizeof(FullConstraints) == TypeFileFormat::CONSTRAINT_SIZE);

/// A data type of the simulated design; the base of all run-time type classes.
///
/// A loaded type belongs to its RTTypeManager, and so do the types that it points to: a link from
/// one type to another is a plain pointer without ownership. A type owns its name, its vectors and
/// its members. Fields are public and read directly; once a type has been loaded, only its SV type
/// id ever changes. The order of the virtual functions and of the fields is part of the binary
/// interface.
///
/// Once its manager has loaded a type and everything that it leads to, any number of threads may
/// call its const member functions at the same time, `setSVTypeId` included, provided that each
/// thread uses a ConstraintStack of its own.
class RTTI_EXPORT RTBaseType {
public:
    /// A type without a name.
    RTBaseType() = default;

    /// Copies `name` into an array of its own; a null name stays null.
    explicit RTBaseType(const char* name);

    RTBaseType(const RTBaseType&) = delete;
    RTBaseType& operator=(const RTBaseType&) = delete;

    /// The class as one of the `ClassId` constants. Constant time.
    virtual unsigned int GetClassId() const;

    virtual ~RTBaseType();

    /// Calls the visitor's overload for this class and returns its result. A typedef is visited as
    /// itself. Constant time, apart from the visitor; exceptions of the visitor pass through.
    virtual bool accept(RTTypeVisitor& visitor) const = 0;

    /// How a value is encoded: for most classes "Unpadded-Byte" if bit 0x10 of the flags is set,
    /// else "Byte". Constant time for scalars. Other queries examine each type below once and can
    /// throw std::bad_alloc. Asking a class can leave a mark on it: see RTClassType.
    virtual ValueEncoding getValueEncoding() const;

    /// This type. For a typedef, unless `keepTypedefs` is true: the first type behind it that is
    /// not a typedef. Takes time proportional to the length of the chain of typedefs.
    virtual const RTBaseType* getSelf(bool keepTypedefs) const;

    /// Stores the SystemVerilog type id if the class has a field for it, else does nothing.
    virtual void setSVTypeId(int svTypeId) const;

    /// The SystemVerilog type id; -99 means none. Constant time; for a typedef as for `getSelf`.
    virtual int getSVTypeId() const;

    /// The size of a value in bytes; 0 if the type does not record it. Constant time.
    virtual unsigned int getValueSize() const;

    /// Appends to `out` one range for each array dimension in and below this type. `stack` holds
    /// the constraints of the levels above (normally none) and is left as it was, except for the
    /// entries that have been used up. Takes time proportional to the types passed and the ranges
    /// appended; throws only std::bad_alloc.
    virtual void populateTypeConstraints(Brakel_tolv::ConstraintStack<FullConstraints>& stack,
                                         std::vector<FullConstraints>& out) const;

    char* m_name = nullptr;   ///< Zero-terminated, owned (array new); may be null.
    unsigned int m_flags = 0; ///< As in the record. The library interprets only bit 0x10.
};

} // namespace RTTI
