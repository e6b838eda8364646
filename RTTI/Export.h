#pragma once

/// Marks what the shared library offers to programs that link it; everything else stays hidden.
#if defined(__GNUC__)
#define RTTI_EXPORT __attribute__((visibility("default")))
#else
#define RTTI_EXPORT
#endif
