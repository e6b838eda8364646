#include "TypeFile/RecordLayout.h"

namespace TypeFile {

std::string inOneWord(std::string_view words) {
    std::string word;
    bool isFirst = false;
    for (const char c : words) {
        if (c != ' ')
            word += isFirst && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        isFirst = c == ' ';
    }
    return word;
}

std::string keyOf(const FieldLayout& field) {
    return field.key != nullptr ? field.key : inOneWord(field.name);
}

} // namespace TypeFile
