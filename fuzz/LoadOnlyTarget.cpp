// Any bytes load, unverified, and every type tells what takes no walk and no text: the target for
// many inputs in little time.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
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
        manager.readAllRTTypes();
        const unsigned int typeCount = Fuzz::typeCountOf(data, size);
        for (unsigned int id = 0; id < typeCount; ++id) {
            if (RTTI::RTBaseType* type = manager.getRTType(id)) {
                type->getValueEncoding();
                type->getValueSize();
                type->getSVTypeId();
            }
        }
    } catch (const std::out_of_range&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return 0;
}
