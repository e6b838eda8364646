// Whatever loads of any bytes, unverified, is compared with what loads of a variation of them, both
// ways, and is the same as itself.

#include "fuzz/PrintEverything.h"
#include "fuzz/TypeFileMutator.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::Parts parts = Fuzz::takeApart(data, size);
    if (parts.records.empty())
        return 0;
    std::mt19937 random(static_cast<unsigned int>(size) * 256 + data[size - 1]);
    const std::string variation = Fuzz::vary(std::move(parts), random);
    const Fuzz::LoadedTypes types(data, size);
    const Fuzz::LoadedTypes others(variation.data(), variation.size());
    Fuzz::differ(types, others);
    Fuzz::differ(others, types);
    if (Fuzz::differ(types, types))
        std::abort();
    return 0;
}
