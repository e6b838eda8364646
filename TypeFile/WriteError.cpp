#include "TypeFile/WriteError.h"

#include <string_view>
#include <utility>

namespace TypeFile {

namespace {

/// A name for a line of text: all but printable ASCII becomes a question mark.
std::string printable(std::string_view name) {
    std::string text(name);
    for (char& c : text) {
        if (c < ' ' || c > '~')
            c = '?';
    }
    return text;
}

std::string textOf(unsigned int typeId, const char* typeName, const std::string& field,
                   const std::string& reason) {
    std::string text;
    if (typeId != RTTI::TypeFileFormat::NO_TYPE_ID)
        text = "type " + std::to_string(typeId);
    else if (typeName != nullptr)
        text = "type";
    if (typeName != nullptr)
        text += " \"" + printable(typeName) + '"';
    if (!text.empty())
        text += ", ";
    return text + field + ": " + reason;
}

} // namespace

std::string FieldPlace::text() const {
    if (list == nullptr)
        return field;
    const std::string item = list + ('[' + std::to_string(index) + ']');
    return *field != '\0' ? item + '.' + field : item;
}

WriteError::WriteError(unsigned int typeId, const char* typeName, std::string field,
                       const std::string& reason)
    : std::runtime_error(textOf(typeId, typeName, field, reason)), m_typeId(typeId),
      m_field(std::move(field)), m_reason(reason) {}

} // namespace TypeFile
