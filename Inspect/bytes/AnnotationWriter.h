#pragma once

#include "Inspect/bytes/RecordFields.h"
#include "Inspect/words/TextStyle.h"
#include "TypeFile/Finding.h"
#include "TypeFile/StorageWindow.h"

#include <cstddef>
#include <memory>
#include <ostream>
#include <vector>

namespace Inspect {

/// Neighbouring bytes that belong together.
struct AnnotatedPart {
    enum class Kind { HEADER, ADDRESS_TABLE, RECORD, GAP, FILE };

    Kind kind;
    unsigned long long offset;
    unsigned long long size;
    std::vector<unsigned int> typeIds = {}; ///< Of a record; several may share it.
    RecordHead head = {};                   ///< Of a record.
};

/// Bytes that are no field are shown up to here: they may be all of a storage.
inline constexpr unsigned long long LONGEST_UNREAD = 192;

/// Where annotated bytes go: part by part, in each its fields, behind each field what is wrong
/// with it. A finding may come without a field as well.
class AnnotationWriter {
public:
    virtual ~AnnotationWriter() = default;

    virtual void beginPart(const AnnotatedPart& part) = 0;
    virtual void field(const RecordField& field, TypeFile::StorageWindow& storage) = 0;
    virtual void finding(const TypeFile::Finding& finding) = 0;
    virtual void endPart() = 0;

    /// Called once, last, with the numbers of the findings that were written.
    virtual void end(std::size_t errors, std::size_t warnings) = 0;
};

/// Writes columns for people.
std::unique_ptr<AnnotationWriter> textAnnotations(std::ostream& out, const TextStyle& style);

/// Writes one JSON document, with an object a line.
std::unique_ptr<AnnotationWriter> jsonAnnotations(std::ostream& out);

} // namespace Inspect
