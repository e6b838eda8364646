#include "Inspect/words/TypeText.h"

#include "Inspect/words/NamedValues.h"

#include <fmt/format.h>

namespace Inspect {

using namespace RTTI;

namespace {

/// The name of a value, or the value itself in the given format.
template <typename Value>
std::string nameOr(const NamedValues& names, Value value, const char* format) {
    const char* name = names.nameOf(static_cast<unsigned int>(value));
    return name != nullptr ? name : fmt::format(fmt::runtime(format), value);
}

} // namespace

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            result += "\\n";
        else if (c == '\t')
            result += "\\t";
        else if (byte < 0x20 || byte >= 0x7F)
            result += fmt::format("\\x{:02X}", byte);
        else
            result += c;
    }
    return result;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text)
        result += c == '"' || c == '\\' ? std::string{'\\', c} : escaped({&c, 1});
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
    return nameOr(valueEncodings, static_cast<int>(encoding), "{}");
}

std::string arrayKindText(ArrayKind kind) {
    return nameOr(arrayKinds, static_cast<unsigned int>(kind), "{:#x}");
}

std::string recordKindText(RecordKind kind) {
    return nameOr(recordKinds, static_cast<unsigned int>(kind), "{:#x}");
}

std::string enumKindText(EnumKind kind) { return nameOr(enumKinds, static_cast<int>(kind), "{}"); }

} // namespace Inspect
