#pragma once

#include "RTTI/Export.h"

/// The version of these headers: what a program was compiled with. docs/compatibility.md says what
/// a change of each number means.
#define RTTI_VERSION_MAJOR 0
/// Grows with every addition.
#define RTTI_VERSION_MINOR 1
/// Grows with every correction.
#define RTTI_VERSION_PATCH 0

/// The three numbers as one, to compare in `#if`: 1.2.3 is RTTI_VERSION_NUMBER(1, 2, 3). Minor and
/// patch stay below 1000.
#define RTTI_VERSION_NUMBER(major, minor, patch) ((major)*1000000 + (minor)*1000 + (patch))
/// The version of these headers as one number.
#define RTTI_VERSION RTTI_VERSION_NUMBER(RTTI_VERSION_MAJOR, RTTI_VERSION_MINOR, RTTI_VERSION_PATCH)

namespace RTTI {

/// The version of the library that is loaded, as one number like RTTI_VERSION. It differs from the
/// headers' where the shared library was replaced after the program had been compiled.
RTTI_EXPORT int libraryVersion() noexcept;

/// The same as text, such as "0.1.0": a constant of the library, which nobody releases.
RTTI_EXPORT const char* libraryVersionText() noexcept;

} // namespace RTTI
