#include "Inspect/json/JsonText.h"

#include <algorithm>

namespace Inspect {

namespace {

/// Whether a character stands for itself in the text of a string.
bool isPlain(char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; }

} // namespace

void JsonText::name(std::string_view name) {
    if (!std::all_of(name.begin(), name.end(), isPlain)) {
        value(nameToJson(name));
        return;
    }
    separate();
    char* const begin = room(name.size() + 2);
    begin[0] = '"';
    std::copy(name.begin(), name.end(), begin + 1);
    begin[name.size() + 1] = '"';
    m_size += name.size() + 2;
}

} // namespace Inspect
