// The program whose instructions are counted: one load of a generated table, its floor, or one
// verification.
//
//   counted_load load|floor|verify TYPES

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "bench/GeneratedTable.h"
#include "bench/LoadFloor.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

// What happens inside these is counted, by their names.

extern "C" [[gnu::noinline]] void countedLoad(RTTI::RTTypeManager& manager,
                                              OVAT::IBlockManager& storage) {
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
}

extern "C" [[gnu::noinline]] void countedFloor(Bench::LoadFloor& floor,
                                               OVAT::IBlockManager& storage) {
    floor.load(storage);
}

extern "C" [[gnu::noinline]] std::size_t countedVerify(OVAT::IBlockManager& storage,
                                                       std::size_t size) {
    return TypeFile::verify(storage, size, 0).size();
}

int main(int argc, char** argv) {
    const std::string_view what = argc == 3 ? argv[1] : "";
    const unsigned int types = argc == 3 ? static_cast<unsigned int>(std::atoi(argv[2])) : 0;
    if ((what != "load" && what != "floor" && what != "verify") || types == 0) {
        std::cerr << "counted_load load|floor|verify TYPES\n";
        return 2;
    }
    const std::vector<char> table = Bench::generatedTable(types);
    OVAT::MemoryBlockManager storage(table.data(), table.size());
    if (what == "load") {
        RTTI::RTTypeManager manager;
        countedLoad(manager, storage);
    } else if (what == "verify") {
        countedVerify(storage, table.size());
    } else {
        const Bench::LoadPlan plan(storage);
        Bench::LoadFloor floor(plan);
        countedFloor(floor, storage);
    }
}
