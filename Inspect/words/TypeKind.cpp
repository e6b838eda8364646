#include "Inspect/words/TypeKind.h"

#include "TypeFile/RecordLayout.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr std::string_view arrayKinds[] = {"fixed array",  "VHDL array",         "unpacked array",
                                           "packed array", "fixed array",        "fixed array",
                                           "fixed array",  "unpadded byte array"};

constexpr std::string_view recordKinds[] = {"record of unknown kind", "record",
                                            "unpacked struct",        "packed struct",
                                            "packed tagged union",    "unpacked tagged union",
                                            "packed union",           "unpacked union",
                                            "unpadded byte struct"};

struct ClassWords {
    unsigned int classId;
    std::string_view words;
};

constexpr ClassWords classWords[] = {{ClassId::SEQ_ENUM, "sequential enumeration"},
                                     {ClassId::DISCRETE_ENUM, "discrete enumeration"},
                                     {ClassId::INT, "integer"},
                                     {ClassId::FLOAT, "real"},
                                     {ClassId::TYPEDEF, "typedef"},
                                     {ClassId::ACCESS, "access type"},
                                     {ClassId::CHANDLE, "chandle"},
                                     {ClassId::EVENT, "event"},
                                     {ClassId::FILE_TYPE, "file type"},
                                     {ClassId::PHYSICAL, "physical type"},
                                     {ClassId::DYNAMIC_ARRAY, "dynamic array"},
                                     {ClassId::QUEUE, "queue"},
                                     {ClassId::ASSOC_ARRAY, "associative array"},
                                     {ClassId::CLASS, "class"},
                                     {ClassId::STRING, "string"},
                                     {ClassId::WILDCARD, "wildcard"}};

template <std::size_t N>
std::string_view wordsOf(const std::string_view (&words)[N], unsigned int index) {
    return index < N ? words[index] : words[0];
}

/// Lower case, single spaces, no last word "type", "enumeration" for "enum".
std::string normalised(std::string_view words) {
    std::vector<std::string> split(1);
    for (const char c : words) {
        if (c == ' ' || c == '-' || c == '_')
            split.emplace_back();
        else
            split.back() += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    split.erase(std::remove(split.begin(), split.end(), std::string()), split.end());
    if (split.size() > 1 && split.back() == "type")
        split.pop_back();
    std::string text;
    for (const std::string& word : split)
        text += (text.empty() ? "" : " ") + (word == "enum" ? "enumeration" : word);
    return text;
}

} // namespace

std::string_view kindOf(const RTBaseType& type) {
    const unsigned int classId = type.GetClassId();
    if (classId == ClassId::ARRAY)
        return kindOf(classId, static_cast<const RTArrayType&>(type).m_arrayKind);
    if (classId == ClassId::RECORD)
        return kindOf(classId, static_cast<const RTRecordType&>(type).m_recordKind);
    return kindOf(classId, 0);
}

std::string_view kindOf(unsigned int kindCode, unsigned int detail) {
    if (kindCode == ClassId::ARRAY)
        return wordsOf(arrayKinds, detail - static_cast<unsigned int>(ARRAY_KIND_INVALID));
    if (kindCode == ClassId::RECORD)
        return wordsOf(recordKinds, detail - static_cast<unsigned int>(RECORD_KIND_INVALID));
    const auto known = std::find_if(std::begin(classWords), std::end(classWords),
                                    [&](const ClassWords& c) { return c.classId == kindCode; });
    return known != std::end(classWords) ? known->words : "type of unknown class";
}

std::string_view kindOf(unsigned int kindCode) {
    if (kindCode == ClassId::ARRAY)
        return "fixed array";
    if (kindCode == ClassId::RECORD)
        return "record, struct or union";
    if (TypeFile::isKind(kindCode) && !TypeFile::buildsType(kindCode))
        return BUILDS_NO_TYPE;
    return kindOf(kindCode, 0);
}

std::vector<std::string_view> allKinds() {
    std::vector<std::string_view> kinds;
    for (const ClassWords& c : classWords)
        kinds.push_back(c.words);
    kinds.insert(kinds.end(), std::begin(arrayKinds), std::end(arrayKinds));
    kinds.insert(kinds.end(), std::begin(recordKinds), std::end(recordKinds));
    std::sort(kinds.begin(), kinds.end());
    kinds.erase(std::unique(kinds.begin(), kinds.end()), kinds.end());
    return kinds;
}

bool matchesKind(std::string_view kind, std::string_view pattern) {
    const std::string words = ' ' + normalised(kind);
    const std::string wanted = ' ' + normalised(pattern);
    return wanted.size() > 1 && wanted.size() <= words.size() &&
           words.compare(words.size() - wanted.size(), wanted.size(), wanted) == 0;
}

} // namespace Inspect
