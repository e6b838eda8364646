#include "fuzz/ImportAndVerify.h"

#include "Import/ImportError.h"
#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeFileWriter.h"
#include "fuzz/MemoryLimit.h"

#include <cstdlib>
#include <new>
#include <sstream>
#include <string>
#include <vector>

namespace Fuzz {

int importAndVerify(const std::uint8_t* data, std::size_t size, const ReadInput& read) {
    // What an input of this size may take, and the piece of a quarter of a megabyte that is read at
    // once.
    const MemoryLimit limit(memoryFor(size + (std::size_t{1} << 14)));
    try {
        std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
        Import::Input input(stream, "input");
        Import::Notes notes;
        Import::TypeTable types;
        read(input, types, notes);
        TypeFile::TypeFileWriter writer;
        types.finish({}, notes, [&](const RTTI::RTBaseType& type) { writer.add(type); });
        const std::vector<char> file = writer.finish();
        OVAT::MemoryBlockManager storage(file.data(), file.size());
        if (TypeFile::hasErrors(TypeFile::verify(storage, file.size(), 0)))
            std::abort();
    } catch (const Import::ImportError&) {
    } catch (const TypeFile::WriteError&) {
    } catch (const std::bad_alloc&) {
    }
    return 0;
}

} // namespace Fuzz
