#include "Inspect/json/JsonText.h"

#include <algorithm>

namespace Inspect {

void JsonText::name(std::string_view name) {
    if (!std::all_of(name.begin(), name.end(), isPlainInString)) {
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

void JsonText::value(const Json& json) { word(lineText(json)); }

} // namespace Inspect
