// The verifier's promise: of a file without an error every type loads, and every query ends.

#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "fuzz/AskEverything.h"
#include "fuzz/TypeFileMutator.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    OVAT::MemoryBlockManager storage(data, size);
    TypeFile::VerifyLimits limits;
    limits.maxWalkSteps = 1U << 18; // So that an input takes no seconds.
    if (TypeFile::hasErrors(TypeFile::verify(storage, size, 0, limits)))
        return 0;
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    if (Fuzz::askEverything(manager, Fuzz::typeCountOf(data, size)) != 0)
        std::abort(); // A type is missing.
    return 0;
}
