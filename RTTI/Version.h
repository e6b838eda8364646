#pragma once

#include "RTTI/Export.h"

/// The version of these headers, with which a program is compiled. docs/compatibility.md explains
/// what a change of each number means.
#define RTTI_VERSION_MAJOR 0
/// Increases with additions.
#define RTTI_VERSION_MINOR 1
/// Increases with corrections.
#define RTTI_VERSION_PATCH 0

/// Combines the three numbers into one for comparisons in `#if`, such as RTTI_VERSION_NUMBER(1, 2,
/// 3) for 1.2.3. The minor and patch numbers stay below 1000.
#define RTTI_VERSION_NUMBER(major, minor, patch) ((major)*1000000 + (minor)*1000 + (patch))
/// The version of these headers as one number.
#define RTTI_VERSION RTTI_VERSION_NUMBER(RTTI_VERSION_MAJOR, RTTI_VERSION_MINOR, RTTI_VERSION_PATCH)

namespace RTTI {

/// The version of the library that is loaded, as one number like RTTI_VERSION. It differs from that
/// of the headers if the shared library was replaced after the program was compiled.
RTTI_EXPORT int libraryVersion() noexcept;

/// The same as text, such as "0.1.0". A constant of the library; do not release it.
RTTI_EXPORT const char* libraryVersionText() noexcept;

} // namespace RTTI
