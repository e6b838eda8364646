#pragma once

#include "RTTI/RTBaseType.h"
#include "TypeFile/NamedValues.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Inspect {

/// Members keep the order in which they were set.
using Json = nlohmann::ordered_json;

// The values of the JSON form, each way. What JSON has no form for gets one: names that are not
// UTF-8 and raw bytes are hexadecimal text, bounds without a decimal form are text.

/// A name: text, or {"hex": "..."} where the bytes are not UTF-8.
Json nameToJson(std::string_view name);

/// The same; a null name counts as empty.
Json nameToJson(const char* name);

/// {"si": ..., "ei": ..., "dir": ...}, and a list of these.
Json rangeToJson(const RTTI::FullConstraints& range);
Json rangesToJson(const std::vector<RTTI::FullConstraints>& ranges);

/// A number that JSON's decimal digits give bit for bit, else "Infinity", "-Infinity" or the 16
/// hexadecimal digits of a NaN.
Json realToJson(double value);

/// A value's name, or the value itself where it has none.
template <typename Enum> Json namedToJson(Enum value) {
    const char* name = TypeFile::namesOf(value).nameOf(static_cast<unsigned int>(value));
    return name != nullptr ? Json(name) : Json(static_cast<std::underlying_type_t<Enum>>(value));
}

/// Whether a character stands for itself in the ASCII text of a string.
inline bool isPlainInString(char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; }

/// An object as one line of ASCII; the second without its last brace, for members that follow.
std::string lineText(const Json& json);
std::string openedText(const Json& json);

/// Two digits a byte.
std::string hexOf(std::string_view bytes);

// The ways back say false for what the form does not have.
bool nameFromJson(const Json& json, std::string& name);
inline constexpr char NAME_FORMS[] = R"(must be text, or {"hex": "..."} with two digits a byte)";
bool realFromJson(const Json& json, double& value);
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
