#include "Inspect/translate/TranslatedNames.h"

#include "Inspect/words/TypeText.h"

namespace Inspect {

using namespace RTTI;

namespace {

constexpr std::size_t LONGEST_FILE_NAME = 200;

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-';
}

std::string lowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

} // namespace

std::vector<std::string> translatedNames(const TypeTable& types) {
    std::vector<std::string> names(types.count);
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTBaseType* type = types.typeOf(id);
        if (type == nullptr || !isGivenName(type->m_name))
            continue;
        names[id] = type->m_name;
    }
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTBaseType* type = types.typeOf(id);
        if (type == nullptr || type->GetClassId() != ClassId::TYPEDEF)
            continue;
        const unsigned int aliased = static_cast<const RTTypedefType&>(*type).m_dataTypeId;
        if (aliased < types.count && names[aliased].empty())
            names[aliased] = names[id];
    }
    for (unsigned int id = 0; id < types.count; ++id) {
        if (names[id].empty())
            names[id] = "type_" + std::to_string(id);
    }
    return names;
}

std::string UniqueNames::take(const std::string& name, unsigned int id) {
    std::string unique = name;
    while (!m_taken.insert(lowerCase(unique)).second)
        unique += '_' + std::to_string(id);
    return unique;
}

std::string fileNameOf(std::string_view name) {
    std::string file;
    for (std::size_t i = 0; i < name.size() && file.size() < LONGEST_FILE_NAME; ++i) {
        const bool isScope = name.substr(i, 2) == "::";
        i += isScope ? 1 : 0;
        const bool isDot = isScope || name[i] == '.';
        if (isDot && !file.empty() && file.back() != '.')
            file += '.';
        else
            file += isPlain(name[i]) ? name[i] : '_';
    }
    if (!file.empty() && file.back() == '.')
        file.back() = '_';
    return file.empty() || file.front() == '-' ? '_' + file : file;
}

} // namespace Inspect
