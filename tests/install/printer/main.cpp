// printer FILE ID: prints one type, as rtti dump does.

#include <Inspect/views/TypeDumper.h>
#include <OVAT/FileBlockManager.h>
#include <RTTI/RTTypeManager.h>

#include <cstdlib>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    const unsigned int id = static_cast<unsigned int>(std::atoi(argv[2]));
    OVAT::FileBlockManager storage(argv[1]);
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    const RTTI::RTBaseType* type = manager.getRTType(id);
    if (type == nullptr)
        return 1;
    Inspect::TypeDumper dumper(
        std::cout, {id + 1, [&](unsigned int other) { return manager.getRTType(other); }});
    dumper.type(id, *type);
    return 0;
}
