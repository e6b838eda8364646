// What was loaded and can be written comes back as it was: the second writing gives the same bytes.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "fuzz/Attempt.h"
#include "fuzz/TypeFileMutator.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
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
    return Fuzz::attempt(size, [&] {
        const unsigned int typeCount = Fuzz::typeCountOf(data, size);
        try {
            const std::vector<char> once = rewritten(data, size, typeCount);
            if (rewritten(once.data(), once.size(), typeCount) != once)
                std::abort();
        } catch (const TypeFile::WriteError&) {
        }
    });
}
