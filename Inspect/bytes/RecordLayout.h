#pragma once

#include "Inspect/words/NamedValues.h"

#include <span>
#include <string_view>

namespace Inspect {

/// How the bytes of a field are read, and what they stand for.
enum class FieldForm {
    RECORD_SIZE, ///< 4 bytes, signed: where the record ends.
    KIND,        ///< 4 bytes: which layout the body has.
    NAME,        ///< Bytes up to a zero byte.
    FLAGS,       ///< 4 bytes.
    NUMBER,      ///< 4 bytes, signed.
    UNSIGNED,    ///< 4 bytes.
    OFFSET,      ///< 4 bytes, unsigned: a place in the storage.
    NAMED,       ///< 4 bytes; `names` has the names of the values.
    FLAVOUR,     ///< 4 bytes, signed; one above `last` is dropped.
    TYPE_ID,     ///< 4 bytes.
    SV_TYPE_ID,  ///< 4 bytes, signed.
    BOOLEAN,     ///< 4 bytes.
    LONG,        ///< 8 bytes, signed.
    REAL,        ///< 8 bytes, a double.
    DIRECTION,   ///< 8 bytes, a double that is truncated to a 32-bit number.
    RANGE,       ///< 12 bytes: left bound, right bound, direction.
    VERSION,     ///< 32 bytes: text up to a zero byte.
    COUNT,       ///< 4 bytes, signed: how many entries the list that follows has.
    VALUE_SIZE,  ///< 4 bytes, signed: how many bytes each VALUE has.
    VALUE,       ///< As many bytes as VALUE_SIZE said.
    RANGES,      ///< 4 bytes, unsigned, and so many ranges.
    LIST,        ///< The entries of a list: so often what stands up to END_OF_LIST.
    END_OF_LIST
};

/// The word for a form where programs read it, such as "typeId".
std::string_view wordOf(FieldForm form);

/// One field of a record, as findings name it, or a list of fields.
struct FieldLayout {
    const char* name;
    FieldForm form;
    int missing = 0; ///< What the loader takes where the field is not there.
    const NamedValues* names = nullptr;
    int last = 0;
};

/// The header of a type file.
std::span<const FieldLayout> headerLayout();

/// What all records begin with, up to the flags.
std::span<const FieldLayout> recordHeadLayout();

/// What follows the flags in a record of this kind; nothing for a kind that builds no type.
std::span<const FieldLayout> bodyLayout(unsigned int kindCode);

} // namespace Inspect
