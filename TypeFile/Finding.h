#pragma once

#include <string>
#include <string_view>

namespace TypeFile {

/// Error: loading the file or asking one of its types can go wrong. Warning: it is legal, every
/// load and every query ends well, and yet no writer is likely to have meant it.
enum class Severity { ERROR, WARNING };

/// What can be wrong with a type file. The textual code of each is stable; see `codeText`.
enum class FindingCode {
    HEADER_OUTSIDE_STORAGE,      ///< The storage ends before the header does.
    VERSION_NOT_TEXT,            ///< The version is no text: these are other bytes.
    MARKED_UNUSABLE,             ///< The version text says that there are no usable types.
    TABLE_OUTSIDE_STORAGE,       ///< The storage ends before the address table does.
    TABLE_OVERLAPS_HEADER,       ///< The address table and the header share bytes.
    LOAD_TOO_LARGE,              ///< More record bytes than the limit.
    RECORD_OUTSIDE_STORAGE,      ///< The storage ends before the record does.
    RECORD_SIZE_INVALID,         ///< A size below that of the record's own header.
    RECORD_OVERLAP,              ///< It shares some bytes with a record, the table or the header.
    RECORD_SHARED,               ///< Two ids have the same record.
    KIND_UNKNOWN,                ///< A kind code outside the list.
    KIND_WITHOUT_TYPE,           ///< A kind code that builds no object.
    NAME_NOT_TERMINATED,         ///< No zero byte up to the end of the record.
    FIELD_MISSING,               ///< The record ends before the field does.
    COUNT_TOO_LARGE,             ///< More entries than the record has room for.
    COUNT_NEGATIVE,              ///< A negative number of entries, which is read as none.
    SIZE_NEGATIVE,               ///< A negative number of bytes.
    LEFTOVER_BYTES,              ///< The record goes on behind its last field.
    ARRAY_KIND_UNKNOWN,          ///< An array kind outside the list.
    RECORD_KIND_UNKNOWN,         ///< A record kind outside the list.
    ENUM_KIND_UNKNOWN,           ///< An enumeration kind outside the list.
    ENCODING_UNKNOWN,            ///< A value encoding outside the list.
    FLAVOUR_UNKNOWN,             ///< A flavour outside the list, which is dropped.
    REAL_DIRECTION_UNUSABLE,     ///< A real type's direction that is no 32-bit number.
    TYPE_ID_OUTSIDE_TABLE,       ///< No type of this file has the id.
    INDEX_TYPE_ID_OUTSIDE_TABLE, ///< The same for a dimension of a fixed array.
    LINK_TO_NO_TYPE,             ///< The id's record builds no type.
    BASE_IS_NO_CLASS,            ///< A class is derived from something else.
    REFERENCE_ENDLESS,           ///< A type needs itself before it can be read.
    RECORD_REOPENED,             ///< A load can need it again so often that it gives up.
    STRUCT_CONTAINS_ITSELF,      ///< Without a class or an access type in between.
    CONSTRAINT_LIST_TOO_SHORT,   ///< Fewer ranges than dimensions.
    WALK_TOO_LARGE,              ///< A constraint walk of more steps than the limit.
    WALKS_NOT_COUNTED,           ///< Whether some walks are too large was not found out.
    MORE_FINDINGS                ///< As many more as the limit leaves out.
};

/// The stable text of a code, such as "record-outside-storage".
std::string_view codeText(FindingCode code);

/// The severity of every finding with this code; MORE_FINDINGS alone takes that of what it counts.
Severity severityOf(FindingCode code);

/// "error" or "warning".
std::string_view severityText(Severity severity);

/// One thing that is wrong with a type file, and where.
struct Finding {
    FindingCode code;          ///< What is wrong.
    Severity severity;         ///< How much it matters.
    unsigned int typeId;       ///< NO_TYPE_ID for what belongs to the file.
    std::string field;         ///< In the words of the format: "member[3].type id".
    unsigned long long offset; ///< Of the field, in the storage.
    std::string text;          ///< One sentence: what was found, what was expected.
};

/// A number as findings show offsets and kinds: "0x1234".
std::string hexText(unsigned long long number);

/// The finding as one line without its end.
std::string lineOf(const Finding& finding);

} // namespace TypeFile
