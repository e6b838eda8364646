// time_load FILE: the processor time of loading all types of a type file, in seconds, in a new process.

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"

#include <cstdio>
#include <ctime>

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    const std::clock_t begin = std::clock();
    OVAT::FileBlockManager storage(argv[1]);
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    std::printf("%.6f\n", static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC);
}
