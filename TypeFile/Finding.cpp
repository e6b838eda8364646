#include "TypeFile/Finding.h"

#include "RTTI/TypeFileFormat.h"
#include "TypeFile/FieldNames.h"

#include <cstdio>

namespace TypeFile {

namespace {

struct CodeRow {
    FindingCode code;
    std::string_view text;
    Severity severity;
};

constexpr Severity ERROR = Severity::ERROR;
constexpr Severity WARNING = Severity::WARNING;

/// In the order of the enumeration.
constexpr CodeRow CODES[] = {
    {FindingCode::HEADER_OUTSIDE_STORAGE, "header-outside-storage", ERROR},
    // The library takes any version, but nothing else tells a type file from other bytes.
    {FindingCode::VERSION_NOT_TEXT, "version-not-text", ERROR},
    {FindingCode::MARKED_UNUSABLE, "marked-unusable", ERROR},
    {FindingCode::TABLE_OUTSIDE_STORAGE, "table-outside-storage", ERROR},
    {FindingCode::TABLE_OVERLAPS_HEADER, "table-overlaps-header", ERROR},
    {FindingCode::LOAD_TOO_LARGE, "load-too-large", ERROR},
    {FindingCode::RECORD_OUTSIDE_STORAGE, "record-outside-storage", ERROR},
    {FindingCode::RECORD_SIZE_INVALID, "record-size-invalid", ERROR},
    // One of the two was not written as it stands, and the bytes do not say which.
    {FindingCode::RECORD_OVERLAP, "record-overlap", ERROR},
    // Each id loads an object of its own from the same bytes, which is safe.
    {FindingCode::RECORD_SHARED, "record-shared", WARNING},
    {FindingCode::KIND_UNKNOWN, "kind-unknown", ERROR},
    // The id stays empty, and a load of all types ends there.
    {FindingCode::KIND_WITHOUT_TYPE, "kind-without-type", ERROR},
    {FindingCode::NAME_NOT_TERMINATED, "name-not-terminated", ERROR},
    {FindingCode::FIELD_MISSING, "field-missing", ERROR},
    {FindingCode::COUNT_TOO_LARGE, "count-too-large", ERROR},
    {FindingCode::COUNT_NEGATIVE, "count-negative", WARNING},
    {FindingCode::SIZE_NEGATIVE, "size-negative", ERROR},
    {FindingCode::LEFTOVER_BYTES, "leftover-bytes", WARNING},
    // Kinds and encodings outside their tables are kept as read, flavours are dropped.
    {FindingCode::ARRAY_KIND_UNKNOWN, "array-kind-unknown", WARNING},
    {FindingCode::RECORD_KIND_UNKNOWN, "record-kind-unknown", WARNING},
    {FindingCode::ENUM_KIND_UNKNOWN, "enum-kind-unknown", WARNING},
    {FindingCode::ENCODING_UNKNOWN, "encoding-unknown", WARNING},
    {FindingCode::FLAVOUR_UNKNOWN, "flavour-unknown", WARNING},
    {FindingCode::REAL_DIRECTION_UNUSABLE, "real-direction-unusable", WARNING},
    {FindingCode::TYPE_ID_OUTSIDE_TABLE, "type-id-outside-table", ERROR},
    // The index types of a fixed array are kept as ids, and no query follows them.
    {FindingCode::INDEX_TYPE_ID_OUTSIDE_TABLE, "index-type-id-outside-table", WARNING},
    {FindingCode::LINK_TO_NO_TYPE, "link-to-no-type", ERROR},
    {FindingCode::BASE_IS_NO_CLASS, "base-is-no-class", WARNING},
    {FindingCode::REFERENCE_ENDLESS, "reference-endless", ERROR},
    // Past the limit the loader takes a reference for null, to come to an end in good time.
    {FindingCode::RECORD_REOPENED, "record-reopened", WARNING},
    {FindingCode::STRUCT_CONTAINS_ITSELF, "struct-contains-itself", ERROR},
    // A missing entry is looked for in the lists further out, and is all zero in the end.
    {FindingCode::CONSTRAINT_LIST_TOO_SHORT, "constraint-list-too-short", WARNING},
    // Queries that may be large can be bounded: `RTTI/ConstraintPopulation.h`.
    {FindingCode::WALK_TOO_LARGE, "walk-too-large", WARNING},
    {FindingCode::WALKS_NOT_COUNTED, "walks-not-counted", WARNING},
    {FindingCode::MORE_FINDINGS, "more-findings", ERROR}};

constexpr bool isInOrder() {
    std::size_t next = 0;
    for (const CodeRow& row : CODES) {
        if (static_cast<std::size_t>(row.code) != next++)
            return false;
    }
    return next == static_cast<std::size_t>(FindingCode::MORE_FINDINGS) + 1;
}
static_assert(isInOrder());

const CodeRow& rowOf(FindingCode code) { return CODES[static_cast<std::size_t>(code)]; }

} // namespace

std::string_view codeText(FindingCode code) { return rowOf(code).text; }

Severity severityOf(FindingCode code) { return rowOf(code).severity; }

std::string_view severityText(Severity severity) {
    return severity == Severity::ERROR ? "error" : "warning";
}

std::string hexText(unsigned long long number) {
    char text[2 + 16 + 1];
    std::snprintf(text, sizeof text, "0x%llx", number);
    return text;
}

std::string lineOf(const Finding& finding) {
    std::string line(severityText(finding.severity));
    line.append(" ").append(codeText(finding.code));
    line += finding.typeId == RTTI::TypeFileFormat::NO_TYPE_ID
                ? " file"
                : " type " + std::to_string(finding.typeId);
    return line + " field \"" + fieldWords(finding.field) + "\" at " + hexText(finding.offset) +
           ": " + finding.text;
}

} // namespace TypeFile
