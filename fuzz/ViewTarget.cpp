// Whatever loads of any bytes, unverified, is shown type by type: as a block of lines, a tree,
// leaves and JSON.

#include "fuzz/PrintEverything.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::viewAll(Fuzz::LoadedTypes(data, size));
    return 0;
}
