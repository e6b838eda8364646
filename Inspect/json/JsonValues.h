#pragma once

#include "Inspect/json/JsonValue.h"

#include <string>
#include <string_view>

namespace Inspect {

// Values that JSON has no form for get one: names that are not UTF-8 and raw bytes are hexadecimal
// text, bounds without a decimal form are text.

inline constexpr char HEX_DIGITS[] = "0123456789abcdef";

/// Two digits a byte.
std::string hexOf(std::string_view bytes);

/// "Infinity", "-Infinity", or the 16 hexadecimal digits of a NaN.
std::string notFiniteText(const double& value);

// The ways back say false for what the form does not have.
bool nameFromJson(const JsonValue& json, std::string& name);
inline constexpr char NAME_FORMS[] = R"(must be text, or {"hex": "..."} with two digits a byte)";
bool realFromJson(const JsonValue& json, double& value);
bool realFromText(std::string_view text, double& value);
bool realFromDigits(std::string_view digits, double& value);
bool bytesOfHex(std::string_view digits, std::string& bytes);

/// The word for a type's class in the form, such as "discreteEnum"; null for a class that builds no
/// object.
const char* jsonKindOf(unsigned int classId);

/// The class of a word; 0 for a word that stands for none.
unsigned int classIdOfJsonKind(std::string_view kind);

/// What the form calls itself, and its version.
inline constexpr char JSON_FORMAT[] = "HDL simulator types";
inline constexpr int JSON_FORMAT_VERSION = 1;

/// Keys that belong to the form alone.
namespace JsonKey {

inline constexpr char FORMAT[] = "format";
inline constexpr char FORMAT_VERSION[] = "formatVersion";
inline constexpr char IS_PART[] = "isPart";
inline constexpr char TYPES[] = "types";
inline constexpr char HEX[] = "hex";
inline constexpr char KIND_CODE[] = "kindCode";

} // namespace JsonKey

/// The kind of an id that builds no type.
inline constexpr char JSON_NO_TYPE[] = "none";

} // namespace Inspect
