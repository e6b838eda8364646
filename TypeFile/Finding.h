#pragma once

#include <string>
#include <string_view>

namespace TypeFile {

/// How serious a finding is. Error: loading the file or querying one of its types can go wrong.
/// Warning: the file is legal and safe to load and query, but hardly what its writer intended.
enum class Severity { ERROR, WARNING };

/// What can be wrong with a type file. The text of each code is stable; see `codeText`.
enum class FindingCode {
    HEADER_OUTSIDE_STORAGE,      ///< The storage ends before the header does.
    VERSION_NOT_TEXT,            ///< The version is not text: hardly a type file.
    MARKED_UNUSABLE,             ///< The version text says that there are no usable types.
    TABLE_OUTSIDE_STORAGE,       ///< The storage ends before the address table does.
    TABLE_OVERLAPS_HEADER,       ///< The address table and the header share bytes.
    LOAD_TOO_LARGE,              ///< The records have more bytes than the limit.
    RECORD_OUTSIDE_STORAGE,      ///< The storage ends before the record does.
    RECORD_SIZE_INVALID,         ///< A size smaller than the record's own header.
    RECORD_OVERLAP,              ///< It shares bytes with another record, the table or the header.
    RECORD_SHARED,               ///< Two ids share one record.
    KIND_UNKNOWN,                ///< An unknown kind code.
    KIND_WITHOUT_TYPE,           ///< A kind code that builds no object.
    NAME_NOT_TERMINATED,         ///< No zero byte before the end of the record.
    FIELD_MISSING,               ///< The record ends before the field does.
    COUNT_TOO_LARGE,             ///< More entries than fit into the record.
    COUNT_NEGATIVE,              ///< A negative number of entries, read as 0.
    SIZE_NEGATIVE,               ///< A negative number of bytes.
    LEFTOVER_BYTES,              ///< The record has bytes after its last field.
    ARRAY_KIND_UNKNOWN,          ///< An unknown array kind.
    RECORD_KIND_UNKNOWN,         ///< An unknown record kind.
    ENUM_KIND_UNKNOWN,           ///< An unknown enumeration kind.
    ENCODING_UNKNOWN,            ///< An unknown value encoding.
    FLAVOUR_UNKNOWN,             ///< An unknown flavour, which the loader ignores.
    REAL_DIRECTION_UNUSABLE,     ///< A real type's direction does not fit 32 bits.
    TYPE_ID_OUTSIDE_TABLE,       ///< The file has no type with this id.
    INDEX_TYPE_ID_OUTSIDE_TABLE, ///< The same, for a dimension of a fixed array.
    LINK_TO_NO_TYPE,             ///< The record with this id builds no type.
    BASE_IS_NO_CLASS,            ///< The base of a class is not a class.
    REFERENCE_ENDLESS,           ///< Reading the type requires the type itself.
    RECORD_REOPENED,             ///< A load may need it again too often and give up.
    STRUCT_CONTAINS_ITSELF,      ///< With no class or access type in between.
    CONSTRAINT_LIST_TOO_SHORT,   ///< Fewer ranges than dimensions.
    WALK_TOO_LARGE,              ///< A constraint walk takes more steps than the limit.
    WALKS_NOT_COUNTED,           ///< It is not known whether some walks are too large.
    MORE_FINDINGS                ///< The number of findings beyond the limit.
};

/// The text of a code, such as "record-outside-storage". It never changes.
std::string_view codeText(FindingCode code);

/// The severity of all findings with this code, except MORE_FINDINGS, whose severity depends on the
/// findings that it counts.
Severity severityOf(FindingCode code);

/// "error" or "warning".
std::string_view severityText(Severity severity);

/// One thing that is wrong with a type file, and its place.
struct Finding {
    FindingCode code;          ///< What is wrong.
    Severity severity;         ///< How serious it is.
    unsigned int typeId;       ///< NO_TYPE_ID if it concerns the whole file.
    std::string field;         ///< The field, such as "members[3].type"; see `fieldWords`.
    unsigned long long offset; ///< The storage offset of the field.
    std::string text;          ///< A sentence: what was found and expected.
};

/// A number in the form that findings use for offsets and kinds: "0x1234".
std::string hexText(unsigned long long number);

/// The finding as one line, without a line end.
std::string lineOf(const Finding& finding);

} // namespace TypeFile
