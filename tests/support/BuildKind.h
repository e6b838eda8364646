#pragma once

namespace RTTITest {

#ifdef __OPTIMIZE__
inline constexpr bool IS_OPTIMISED = true;
#else
inline constexpr bool IS_OPTIMISED = false;
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool HAS_SANITIZERS = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool HAS_SANITIZERS = true;
#else
inline constexpr bool HAS_SANITIZERS = false;
#endif
#else
inline constexpr bool HAS_SANITIZERS = false;
#endif

/// With sanitizers, or in an emulator, everything takes many times as long.
#ifdef IN_EMULATOR
inline constexpr bool IS_SLOW = true;
#else
inline constexpr bool IS_SLOW = HAS_SANITIZERS;
#endif

} // namespace RTTITest
