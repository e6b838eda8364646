#pragma once

#include "Inspect/json/JsonForm.h"
#include "Inspect/json/JsonText.h"
#include "Inspect/json/JsonValues.h"

#include <ostream>
#include <string>

namespace Inspect {

/// Writes a list of JSON objects as they come, one a line, behind an object of properties: as one
/// document, whose last key holds the list, or as an object a line. The text is ASCII.
class JsonLines {
public:
    /// `properties` is an object; `list` is the key of the list in a document.
    JsonLines(std::ostream& out, JsonForm form, const Json& properties, const std::string& list);

    void add(const Json& object);

    /// The same for an object that is put together as text: `begin` gives an empty one, `put`
    /// writes what has been made of it.
    JsonText& begin();
    void put();

    /// Closes the document. Called once, last.
    void end();

private:
    std::ostream& m_out;
    JsonForm m_form;
    JsonText m_text;
    bool m_isFirst = true;
};

} // namespace Inspect
