// The verifier's promise: of a file without an error every type loads, and every question ends.

#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "fuzz/AskEverything.h"
#include "fuzz/QuickLimits.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    OVAT::MemoryBlockManager storage(data, size);
    if (TypeFile::hasErrors(TypeFile::verify(storage, size, 0, Fuzz::quickLimits())))
        return 0;
    Fuzz::LoadedTypes types(data, size);
    if (Fuzz::askEverything(types) != 0)
        std::abort(); // A type is missing.
    return 0;
}
