#include "Inspect/json/JsonCursor.h"

#include "Inspect/json/JsonText.h"

namespace Inspect {

bool JsonCursor::take(std::string_view& string) {
    if (!take('"'))
        return false;
    const char* const begin = m_at;
    while (m_at != m_end && isPlainInString(*m_at))
        ++m_at;
    string = {begin, static_cast<std::size_t>(m_at - begin)};
    return takeHere("\"");
}

bool JsonCursor::takeNumber(std::string_view& digits) {
    constexpr std::string_view CHARACTERS = "+-.0123456789Ee";
    skipBlanks();
    const char* const begin = m_at;
    while (m_at != m_end && CHARACTERS.find(*m_at) != std::string_view::npos)
        ++m_at;
    digits = {begin, static_cast<std::size_t>(m_at - begin)};
    return m_at != begin;
}

} // namespace Inspect
