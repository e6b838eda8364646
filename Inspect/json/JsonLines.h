#pragma once

#include "Inspect/json/JsonForm.h"
#include "Inspect/json/JsonText.h"

#include <functional>
#include <ostream>
#include <string_view>

namespace Inspect {

/// Writes a list of JSON objects as they come, one a line, behind an object of properties: as one
/// document, whose last key holds the list, or as an object a line. The text is ASCII.
class JsonLines {
public:
    /// `format` is a few words, `properties` writes members behind those that say the format;
    /// `list` is the key of the list in a document.
    JsonLines(std::ostream& out, JsonForm form, std::string_view format, std::string_view list,
              const std::function<void(JsonText&)>& properties);

    /// Begins an object, whose members follow.
    JsonText& begin();

    /// Closes the object and writes it.
    void put();

    /// Closes the document. Called once, last.
    void end();

private:
    std::ostream& m_out;
    JsonForm m_form;
    JsonText m_text;
};

} // namespace Inspect
