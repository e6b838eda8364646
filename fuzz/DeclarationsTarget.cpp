// Whatever loads of any bytes, unverified, is declared in both languages.

#include "fuzz/PrintEverything.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::declareAll(Fuzz::LoadedTypes(data, size));
    return 0;
}
