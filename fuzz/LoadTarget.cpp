// Any bytes load, unverified, and answer: no memory is touched that is not theirs, and every call
// ends. What the storage or the allocator throws is a clean end.

#include "OVAT/MemoryBlockManager.h"
#include "fuzz/AskEverything.h"
#include "fuzz/MemoryLimit.h"
#include "fuzz/TypeFileMutator.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <stdexcept>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::MemoryLimit limit(Fuzz::memoryFor(size));
    try {
        OVAT::MemoryBlockManager storage(data, size);
        RTTI::RTTypeManager manager;
        manager.setupDeserializer(storage, 0);
        Fuzz::askEverything(manager, Fuzz::typeCountOf(data, size));
    } catch (const std::out_of_range&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return 0;
}
