// Any bytes are annotated, and the types in them named.

#include "fuzz/PrintEverything.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::annotateAll(data, size);
    return 0;
}
