#pragma once

#include <bit>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace RTTI {

/// The little-endian number of `sizeof(T)` bytes at `bytes`, which need not be aligned.
template <typename T> T littleEndianAt(const char* bytes) {
    static_assert(std::is_arithmetic_v<T>);
    char copy[sizeof(T)];
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(copy, bytes, sizeof(T));
    } else {
        for (std::size_t i = 0; i < sizeof(T); ++i)
            copy[i] = bytes[sizeof(T) - 1 - i];
    }
    T value;
    std::memcpy(&value, copy, sizeof(T));
    return value;
}

/// Writes `value` as a little-endian number of `sizeof(T)` bytes.
template <typename T> void putLittleEndian(char* bytes, T value) {
    static_assert(std::is_arithmetic_v<T>);
    char copy[sizeof(T)];
    std::memcpy(copy, &value, sizeof(T));
    for (std::size_t i = 0; i < sizeof(T); ++i)
        bytes[i] = copy[std::endian::native == std::endian::little ? i : sizeof(T) - 1 - i];
}

} // namespace RTTI
