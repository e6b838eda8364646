#include "TypeFile/FieldNames.h"

#include <utility>

namespace TypeFile {

namespace {

constexpr std::pair<std::string_view, std::string_view> ABBREVIATIONS[] = {{"sv", "SV"},
                                                                           {"ref", "referenced"},
                                                                           {"si", "start index"},
                                                                           {"ei", "end index"},
                                                                           {"dir", "direction"}};

bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }

std::string_view writtenOut(std::string_view word) {
    for (const auto& [abbreviation, words] : ABBREVIATIONS) {
        if (word == abbreviation)
            return words;
    }
    return word;
}

} // namespace

std::string fieldWords(std::string_view field) {
    std::string words;
    for (std::size_t at = 0; at < field.size();) {
        const bool isNext = isUpper(field[at]);
        words += isNext ? " " : "";
        const std::size_t begin = words.size();
        if (isNext)
            words += static_cast<char>(field[at++] - 'A' + 'a');
        while (at < field.size() && isLower(field[at]))
            words += field[at++];
        const std::string_view word = std::string_view(words).substr(begin);
        if (const std::string_view whole = writtenOut(word); whole.data() != word.data())
            words.replace(begin, std::string::npos, whole);
        while (at < field.size() && !isUpper(field[at]) && !isLower(field[at]))
            words += field[at++];
    }
    return words;
}

} // namespace TypeFile
