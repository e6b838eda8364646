// What was loaded and can be written comes back as it was: the second writing gives the same bytes.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "fuzz/MemoryLimit.h"
#include "fuzz/TypeFileMutator.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <stdexcept>
#include <vector>

namespace {

/// The types of a storage, written: those up to the first id without a type.
std::vector<char> rewritten(const void* data, std::size_t size, unsigned int typeCount) {
    OVAT::MemoryBlockManager storage(data, size);
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    TypeFile::TypeFileWriter writer;
    for (unsigned int id = 0; id < typeCount; ++id) {
        if (const RTTI::RTBaseType* type = manager.getRTType(id))
            writer.add(id, *type);
    }
    return writer.finish();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::MemoryLimit limit(Fuzz::memoryFor(size));
    try {
        const unsigned int typeCount = Fuzz::typeCountOf(data, size);
        const std::vector<char> once = rewritten(data, size, typeCount);
        if (rewritten(once.data(), once.size(), typeCount) != once)
            std::abort();
    } catch (const TypeFile::WriteError&) {
    } catch (const std::out_of_range&) {
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return 0;
}
