#pragma once

#include <span>
#include <string_view>

namespace Inspect::PageText {

// The files of this folder, put into the library by the build.

/// The page, with a name in double braces where something goes in.
extern const std::string_view PAGE;
extern const std::string_view STYLE;
extern const std::span<const std::string_view> SCRIPT; ///< One file behind the other.

/// SHA-256 of style and script in hexadecimal digits.
extern const std::string_view STYLE_HASH;
extern const std::string_view SCRIPT_HASH;

} // namespace Inspect::PageText
