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
    begin().value(object);
    put();
}

JsonText& JsonLines::begin() {
    m_text.clear();
    return m_text;
}

void JsonLines::put() {
    m_out << (m_form == JsonForm::DOCUMENT && !m_isFirst ? ",\n" : "\n") << m_text.view();
    m_isFirst = false;
}

void JsonLines::end() { m_out << (m_form == JsonForm::DOCUMENT ? "\n]}\n" : "\n"); }

} // namespace Inspect
