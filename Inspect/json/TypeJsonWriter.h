#pragma once

#include "Inspect/json/JsonForm.h"
#include "RTTI/RTType.h"

#include <memory>
#include <ostream>
#include <string_view>

namespace Inspect {

class JsonLines;

/// Writes types in the JSON form, one after the other: one object for each type, with every field
/// of its record and other types by id. The text is ASCII and the same in every run. Types are
/// written at once, so memory use does not grow with their number.
class TypeJsonWriter {
public:
    /// Begins the text; `version` is the file's version text. `out` must outlive the writer, and
    /// the caller checks it for failures. `isPart` marks the text as one that has only some of the
    /// types of a file.
    TypeJsonWriter(std::ostream& out, JsonForm form, std::string_view version, bool isPart = false);
    TypeJsonWriter(const TypeJsonWriter&) = delete;
    TypeJsonWriter& operator=(const TypeJsonWriter&) = delete;
    ~TypeJsonWriter();

    /// Writes a type under its id. Takes time proportional to its record.
    void type(unsigned int id, const RTTI::RTBaseType& type);

    /// Writes an id whose record builds no type, with the kind code of that record.
    void noType(unsigned int id, unsigned int kindCode);

    /// Ends the document. Must be the last call, made once.
    void end();

private:
    std::unique_ptr<JsonLines> m_lines;
};

} // namespace Inspect
