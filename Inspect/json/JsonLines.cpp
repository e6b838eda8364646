#include "Inspect/json/JsonLines.h"

namespace Inspect {

namespace {

std::string textOf(const Json& json) {
    return json.dump(-1, ' ', true); // One line, ASCII.
}

} // namespace

JsonLines::JsonLines(std::ostream& out, JsonForm form, const Json& properties,
                     const std::string& list)
    : m_out(out), m_form(form) {
    std::string text = textOf(properties);
    if (m_form == JsonForm::DOCUMENT) {
        text.pop_back(); // Its last brace: the list belongs to the same object.
        text += ",\"" + list + "\":[";
    }
    m_out << text;
}

void JsonLines::add(const Json& object) {
    m_out << (m_form == JsonForm::DOCUMENT && !m_isFirst ? ",\n" : "\n") << textOf(object);
    m_isFirst = false;
}

void JsonLines::end() { m_out << (m_form == JsonForm::DOCUMENT ? "\n]}\n" : "\n"); }

} // namespace Inspect
