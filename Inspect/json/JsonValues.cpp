#include "Inspect/json/JsonValues.h"

#include "TypeFile/TypeFields.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace Inspect {

namespace {

using namespace RTTI;

constexpr char POSITIVE_INFINITY[] = "Infinity";
constexpr char NEGATIVE_INFINITY[] = "-Infinity";
constexpr std::size_t DOUBLE_DIGITS = 16;

struct JsonKind {
    unsigned int classId;
    const char* word;
};

constexpr JsonKind jsonKinds[] = {{ClassId::SEQ_ENUM, "seqEnum"},
                                  {ClassId::DISCRETE_ENUM, "discreteEnum"},
                                  {ClassId::INT, "integer"},
                                  {ClassId::FLOAT, "real"},
                                  {ClassId::TYPEDEF, "typedef"},
                                  {ClassId::ACCESS, "access"},
                                  {ClassId::CHANDLE, "chandle"},
                                  {ClassId::EVENT, "event"},
                                  {ClassId::FILE_TYPE, "file"},
                                  {ClassId::PHYSICAL, "physical"},
                                  {ClassId::ARRAY, "array"},
                                  {ClassId::RECORD, "record"},
                                  {ClassId::DYNAMIC_ARRAY, "dynamicArray"},
                                  {ClassId::QUEUE, "queue"},
                                  {ClassId::ASSOC_ARRAY, "assocArray"},
                                  {ClassId::CLASS, "class"},
                                  {ClassId::STRING, "string"},
                                  {ClassId::WILDCARD, "wildcard"}};

/// The bytes that follow a lead byte of UTF-8, and the range of the first of them.
struct Sequence {
    unsigned char firstLead, lastLead;
    std::size_t following;
    unsigned char lowest, highest;
};

constexpr Sequence sequences[] = {
    {0x00, 0x7F, 0, 0, 0},       {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F}};

/// The length of the UTF-8 sequence at the front of `text`; 0 where there is none.
std::size_t sequenceLength(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (const Sequence& s : sequences) {
        if (byteAt(0) < s.firstLead || byteAt(0) > s.lastLead)
            continue;
        if (text.size() <= s.following)
            return 0;
        for (std::size_t i = 1; i <= s.following; ++i) {
            if (byteAt(i) < (i == 1 ? s.lowest : 0x80) || byteAt(i) > (i == 1 ? s.highest : 0xBF))
                return 0;
        }
        return s.following + 1;
    }
    return 0;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = sequenceLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

int digitOf(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace

std::string hexOf(std::string_view bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {digits[byte >> 4], digits[byte & 0xF]};
    }
    return text;
}

bool bytesOfHex(std::string_view digits, std::string& bytes) {
    bytes.clear();
    if (digits.size() % 2 != 0)
        return false;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        const int high = digitOf(digits[i]);
        const int low = digitOf(digits[i + 1]);
        if (high < 0 || low < 0)
            return false;
        bytes += static_cast<char>(high * 16 + low);
    }
    return true;
}

Json nameToJson(std::string_view name) {
    if (isUtf8(name))
        return name;
    return {{JsonKey::HEX, hexOf(name)}};
}

Json nameToJson(const char* name) {
    return nameToJson(name != nullptr ? std::string_view(name) : std::string_view());
}

Json rangeToJson(const FullConstraints& range) {
    Json json;
    TypeFile::forEachField(
        range, [&](const char* name, int bound, TypeFile::Form::Number) { json[name] = bound; });
    return json;
}

Json rangesToJson(const std::vector<FullConstraints>& ranges) {
    Json list = Json::array();
    for (const FullConstraints& range : ranges)
        list.push_back(rangeToJson(range));
    return list;
}

std::string lineText(const Json& json) { return json.dump(-1, ' ', true); }

std::string openedText(const Json& json) {
    std::string text = lineText(json);
    text.pop_back();
    return text;
}

bool nameFromJson(const Json& json, std::string& name) {
    if (json.is_string()) {
        name = json.get_ref<const std::string&>();
        return true;
    }
    if (!json.is_object() || json.size() != 1 || !json.contains(JsonKey::HEX) ||
        !json[JsonKey::HEX].is_string())
        return false;
    return bytesOfHex(json[JsonKey::HEX].get_ref<const std::string&>(), name);
}

Json realToJson(double value) {
    if (std::isfinite(value))
        return value;
    if (std::isinf(value))
        return value > 0 ? POSITIVE_INFINITY : NEGATIVE_INFINITY;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    std::array<char, sizeof bits> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(bits >> (56 - 8 * i));
    return hexOf({bytes.data(), bytes.size()});
}

bool realFromJson(const Json& json, double& value) {
    if (json.is_number()) {
        value = json.get<double>();
        return true;
    }
    if (!json.is_string())
        return false;
    const auto& text = json.get_ref<const std::string&>();
    if (text == POSITIVE_INFINITY || text == NEGATIVE_INFINITY) {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        value = text == POSITIVE_INFINITY ? infinity : -infinity;
        return true;
    }
    std::string bytes;
    if (text.size() != DOUBLE_DIGITS || !bytesOfHex(text, bytes))
        return false;
    std::uint64_t bits = 0;
    for (const char c : bytes)
        bits = bits << 8 | static_cast<unsigned char>(c);
    std::memcpy(&value, &bits, sizeof value);
    return true;
}

const char* jsonKindOf(unsigned int classId) {
    for (const JsonKind& kind : jsonKinds) {
        if (kind.classId == classId)
            return kind.word;
    }
    return nullptr;
}

unsigned int classIdOfJsonKind(std::string_view kind) {
    for (const JsonKind& known : jsonKinds) {
        if (kind == known.word)
            return known.classId;
    }
    return 0;
}

} // namespace Inspect
