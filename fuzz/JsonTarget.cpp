// Any text is read or refused, in both forms; what is read and can be written loads.

#include "Inspect/json/TypeJsonReader.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "fuzz/MemoryLimit.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <sstream>
#include <string>

namespace {

void build(const std::string& text, bool isLines) {
    std::istringstream in(text);
    TypeFile::TypeFileWriter writer;
    Inspect::TypeJsonReader reader(
        [&](unsigned int id, const RTTI::RTBaseType& type) { writer.add(id, type); },
        [&](std::string_view version) { writer.setVersion(version); });
    isLines ? reader.readLines(in) : reader.readDocument(in);
    const unsigned int typeCount = writer.typeCount();
    OVAT::OwningMemoryBlockManager storage(writer.finish());
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    for (unsigned int id = 0; id < typeCount; ++id) {
        if (manager.getRTType(id) == nullptr)
            std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fuzz::MemoryLimit limit(Fuzz::memoryFor(size));
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const bool isLines : {false, true}) {
        try {
            build(text, isLines);
        } catch (const Inspect::JsonError&) {
        } catch (const TypeFile::WriteError&) {
        } catch (const std::bad_alloc&) {
        }
    }
    return 0;
}
