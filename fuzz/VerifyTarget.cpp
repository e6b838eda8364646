// Any bytes are verified, wherever the type file is said to begin, and nothing is thrown.

#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "fuzz/MemoryLimit.h"
#include "fuzz/QuickLimits.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::MemoryLimit limit(Fuzz::memoryFor(size));
    OVAT::MemoryBlockManager storage(data, size);
    const unsigned long long baseOffset = size != 0 && data[size - 1] == 1 ? size : 0;
    const auto findings = TypeFile::verify(storage, size, baseOffset, Fuzz::quickLimits());
    if (baseOffset != 0 && !TypeFile::hasErrors(findings))
        std::abort(); // Nothing lies at the end of a storage.
    return 0;
}
