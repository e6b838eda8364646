// The program whose instructions are counted: one load of a generated table, or its floor.
//
//   counted_load load|floor TYPES

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "bench/GeneratedTable.h"
#include "bench/LoadFloor.h"

#include <cstdlib>
#include <iostream>
#include <string_view>

// What happens inside these two is counted, by their names.

extern "C" [[gnu::noinline]] void countedLoad(RTTI::RTTypeManager& manager,
                                              OVAT::IBlockManager& storage) {
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
}

extern "C" [[gnu::noinline]] void countedFloor(Bench::LoadFloor& floor,
                                               OVAT::IBlockManager& storage) {
    floor.load(storage);
}

int main(int argc, char** argv) {
    const std::string_view what = argc == 3 ? argv[1] : "";
    const unsigned int types = argc == 3 ? static_cast<unsigned int>(std::atoi(argv[2])) : 0;
    if ((what != "load" && what != "floor") || types == 0) {
        std::cerr << "counted_load load|floor TYPES\n";
        return 2;
    }
    const std::vector<char> table = Bench::generatedTable(types);
    OVAT::MemoryBlockManager storage(table.data(), table.size());
    if (what == "load") {
        RTTI::RTTypeManager manager;
        countedLoad(manager, storage);
    } else {
        const Bench::LoadPlan plan(storage);
        Bench::LoadFloor floor(plan);
        countedFloor(floor, storage);
    }
}
