#include "Inspect/TypeText.h"

#include <fmt/format.h>

#include <cstddef>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr const char* encodings[] = {"4-State", "2-State", "Byte", "Unpadded-Byte"};
constexpr const char* arrayKinds[] = {"ARRAY_KIND_INVALID",
                                      "VHDL_ARRAY",
                                      "VLOG_FIXED_UNPACKED_ARRAY",
                                      "VLOG_FIXED_PACKED_ARRAY",
                                      "VLOG_DYNAMIC_ARRAY",
                                      "VLOG_ASSOCIATIVE_ARRAY",
                                      "VLOG_QUEUE",
                                      "BYTE_UNPADDED_ARRAY"};
constexpr const char* recordKinds[] = {"RECORD_KIND_INVALID",        "VHDL_RECORD",
                                       "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
                                       "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
                                       "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
                                       "BYTE_UNPADDED_STRUCT"};
constexpr const char* enumKinds[] = {"INVALID_ENUM",        "VLOG_BUILTIN_ENUM", "VHDL_BIT_ENUM",
                                     "VHDL_STD_LOGIC_ENUM", "VHDL_CHAR_ENUM",    "VHDL_OTHER_ENUM"};

/// `names[value - first]`, or the value itself in the given format.
template <std::size_t N, typename Value>
std::string nameOr(const char* const (&names)[N], Value value, Value first, const char* format) {
    const unsigned int index = static_cast<unsigned int>(value) - static_cast<unsigned int>(first);
    return index < N ? names[index] : fmt::format(fmt::runtime(format), value);
}

} // namespace

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            result += {'\\', c};
        else if (c == '\n')
            result += "\\n";
        else if (c == '\t')
            result += "\\t";
        else if (byte < 0x20 || byte >= 0x7F)
            result += fmt::format("\\x{:02X}", byte);
        else
            result += c;
    }
    return result + '"';
}

std::string quotedName(const char* name) { return name != nullptr ? quoted(name) : "(no name)"; }

std::string rangeText(const FullConstraints& range) {
    if (range.dir == TypeFileFormat::TO_DIRECTION)
        return fmt::format("{} to {}", range.si, range.ei);
    if (range.dir == TypeFileFormat::DOWNTO_DIRECTION)
        return fmt::format("{} downto {}", range.si, range.ei);
    if (range.dir != TypeFileFormat::UNCONSTRAINED_DIRECTION)
        return fmt::format("{}, {}, direction {}", range.si, range.ei, range.dir);
    if (range.si == 0 && range.ei == 0)
        return "open";
    return fmt::format("open ({}, {})", range.si, range.ei);
}

std::string encodingText(ValueEncoding encoding) {
    return nameOr(encodings, static_cast<int>(encoding), 0, "{}");
}

std::string arrayKindText(ArrayKind kind) {
    return nameOr(arrayKinds, static_cast<unsigned int>(kind),
                  static_cast<unsigned int>(ARRAY_KIND_INVALID), "{:#x}");
}

std::string recordKindText(RecordKind kind) {
    return nameOr(recordKinds, static_cast<unsigned int>(kind),
                  static_cast<unsigned int>(RECORD_KIND_INVALID), "{:#x}");
}

std::string enumKindText(EnumKind kind) {
    return nameOr(enumKinds, static_cast<int>(kind), 0, "{}");
}

} // namespace Inspect
