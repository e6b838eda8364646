#include "Inspect/json/JsonLines.h"

#include "Inspect/json/PartJson.h"

namespace Inspect {

JsonLines::JsonLines(std::ostream& out, JsonForm form, std::string_view format,
                     std::string_view list, const std::function<void(JsonText&)>& properties)
    : m_out(out), m_form(form) {
    openDocument(m_text, format);
    properties(m_text);
    if (m_form == JsonForm::DOCUMENT) {
        m_text.key(list);
        m_text.openList();
    } else {
        m_text.closeObject();
    }
    m_text.writeTo(m_out);
}

JsonText& JsonLines::begin() {
    if (m_form == JsonForm::LINES)
        m_text.clear();
    m_text.newLine();
    m_text.openObject();
    return m_text;
}

void JsonLines::put() {
    m_text.closeObject();
    m_text.writeTo(m_out);
}

void JsonLines::end() {
    m_text.endOfLines();
    if (m_form == JsonForm::DOCUMENT) {
        m_text.closeList();
        m_text.closeObject();
        m_text.endOfLines();
    }
    m_text.writeTo(m_out);
}

} // namespace Inspect
