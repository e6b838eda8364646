#pragma once

#include "RTTI/RTType.h"

#include <memory>
#include <ostream>
#include <string_view>

namespace Inspect {

class JsonLines;

/// How the JSON form is cut into lines.
enum class JsonForm {
    DOCUMENT, ///< One object, with one type a line in its list "types".
    LINES     ///< An object a line: the file's properties, then the types.
};

/// Writes types in the JSON form, one after the other: one object a type, every field of its
/// record, other types by id. The text is ASCII and is the same on every run. Nothing is held back:
/// memory does not grow with the number of types.
class TypeJsonWriter {
public:
    /// Begins the text; `version` is the file's version text. `out` stays the caller's, outlives
    /// the writer and keeps its own record of failures.
    TypeJsonWriter(std::ostream& out, JsonForm form, std::string_view version);
    TypeJsonWriter(const TypeJsonWriter&) = delete;
    TypeJsonWriter& operator=(const TypeJsonWriter&) = delete;
    ~TypeJsonWriter();

    /// A type under its id. Grows with the size of its record.
    void type(unsigned int id, const RTTI::RTBaseType& type);

    /// An id whose record builds no type, with the kind code of that record.
    void noType(unsigned int id, unsigned int kindCode);

    /// Closes the document. Called once, last.
    void end();

private:
    std::unique_ptr<JsonLines> m_lines;
};

} // namespace Inspect
