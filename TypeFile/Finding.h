#pragma once

#include <string>
#include <string_view>

namespace TypeFile {

/// Error: loading the file or asking one of its types can go wrong. Warning: it is legal, every
/// load and every query ends well, and yet no writer is likely to have meant it.
enum class Severity { ERROR, WARNING };

/// What can be wrong with a type file. The textual code of each is stable; see `codeText`.
enum class FindingCode {
    HEADER_OUTSIDE_STORAGE,
    VERSION_NOT_TEXT,
    MARKED_UNUSABLE,
    TABLE_OUTSIDE_STORAGE,
    TABLE_OVERLAPS_HEADER,
    LOAD_TOO_LARGE,
    RECORD_OUTSIDE_STORAGE,
    RECORD_SIZE_INVALID,
    RECORD_OVERLAP,
    RECORD_SHARED,
    KIND_UNKNOWN,
    KIND_WITHOUT_TYPE,
    NAME_NOT_TERMINATED,
    FIELD_MISSING,
    COUNT_TOO_LARGE,
    COUNT_NEGATIVE,
    SIZE_NEGATIVE,
    LEFTOVER_BYTES,
    ARRAY_KIND_UNKNOWN,
    RECORD_KIND_UNKNOWN,
    ENUM_KIND_UNKNOWN,
    ENCODING_UNKNOWN,
    FLAVOUR_UNKNOWN,
    REAL_DIRECTION_UNUSABLE,
    TYPE_ID_OUTSIDE_TABLE,
    INDEX_TYPE_ID_OUTSIDE_TABLE,
    LINK_TO_NO_TYPE,
    BASE_IS_NO_CLASS,
    REFERENCE_ENDLESS,
    NESTING_TOO_DEEP,
    STRUCT_CONTAINS_ITSELF,
    CONSTRAINT_LIST_TOO_SHORT,
    WALK_TOO_LARGE,
    MORE_FINDINGS
};

/// The stable text of a code, such as "record-outside-storage".
std::string_view codeText(FindingCode code);

/// The severity of every finding with this code; MORE_FINDINGS alone takes that of what it counts.
Severity severityOf(FindingCode code);

/// "error" or "warning".
std::string_view severityText(Severity severity);

/// One thing that is wrong with a type file, and where.
struct Finding {
    FindingCode code;
    Severity severity;
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
