#pragma once

/// Marks the names that the shared library exports; all others stay hidden.
#if defined(__GNUC__)
#define RTTI_EXPORT __attribute__((visibility("default")))
#else
#define RTTI_EXPORT
#endif
