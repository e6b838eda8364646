#include "Inspect/json/JsonLines.h"

namespace Inspect {

JsonLines::JsonLines(std::ostream& out, JsonForm form, const Json& properties,
                     const std::string& list)
    : m_out(out), m_form(form) {
    if (m_form == JsonForm::DOCUMENT)
        m_out << openedText(properties) << ",\"" << list << "\":[";
    else
        m_out << lineText(properties);
}

void JsonLines::add(const Json& object) {
    m_out << (m_form == JsonForm::DOCUMENT && !m_isFirst ? ",\n" : "\n") << lineText(object);
    m_isFirst = false;
}

void JsonLines::end() { m_out << (m_form == JsonForm::DOCUMENT ? "\n]}\n" : "\n"); }

} // namespace Inspect
