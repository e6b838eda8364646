// Any bytes load, unverified, and answer: no memory is touched that is not theirs, and every
// question ends.

#include "fuzz/AskEverything.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::askEverything(Fuzz::LoadedTypes(data, size));
    return 0;
}
