#include "Inspect/json/JsonValues.h"

#include "TypeFile/TypeFields.h"

#include <nlohmann/json.hpp>

#include <array>
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

int digitOf(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace

std::string hexOf(std::string_view bytes) {
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += {HEX_DIGITS[byte >> 4], HEX_DIGITS[byte & 0xF]};
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

bool nameFromJson(const JsonValue& json, std::string& name) {
    if (const auto* text = json.get<std::string>()) {
        name = *text;
        return true;
    }
    const auto* object = json.get<JsonObject>();
    if (object == nullptr || object->size() != 1 || object->front().first != JsonKey::HEX)
        return false;
    const auto* digits = object->front().second.get<std::string>();
    return digits != nullptr && bytesOfHex(*digits, name);
}

std::string notFiniteText(const double& value) {
    // The bits alone tell: in an x87 register, a signalling NaN would become a quiet one.
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    constexpr std::uint64_t INFINITE = 0x7FF0000000000000, NEGATIVE = 0x8000000000000000;
    if ((bits & ~NEGATIVE) == INFINITE)
        return (bits & NEGATIVE) == 0 ? POSITIVE_INFINITY : NEGATIVE_INFINITY;
    std::array<char, sizeof bits> bytes;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(bits >> (56 - 8 * i));
    return hexOf({bytes.data(), bytes.size()});
}

bool realFromJson(const JsonValue& json, double& value) {
    if (const auto* text = json.get<std::string>())
        return realFromText(*text, value);
    if (const auto* real = json.get<double>())
        value = *real;
    else if (const auto* number = json.get<std::uint64_t>())
        value = static_cast<double>(*number);
    else if (const auto* below = json.get<std::int64_t>())
        value = static_cast<double>(*below);
    else
        return false;
    return true;
}

bool realFromDigits(std::string_view digits, double& value) {
    // A number takes no memory to destroy.
    const auto number = nlohmann::json::parse(digits, nullptr, false);
    if (!number.is_number())
        return false;
    value = number.get<double>();
    return true;
}

bool realFromText(std::string_view text, double& value) {
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
