#pragma once

namespace Inspect {

/// How a list of objects in the JSON form is divided into lines.
enum class JsonForm {
    DOCUMENT, ///< One object, with each entry of its list, such as "types", on one line.
    LINES     ///< One object on each line: first the properties, then the entries of the list.
};

} // namespace Inspect
