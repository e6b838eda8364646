// Any bytes load, unverified: no memory is touched that is not theirs, and loading ends.

#include "fuzz/LoadedTypes.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::LoadedTypes types(data, size);
    return 0;
}
