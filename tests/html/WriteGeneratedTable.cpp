// write_generated_table COUNT FILE: a type file of as many types.

#include "bench/GeneratedTable.h"

#include <cstdlib>
#include <fstream>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    const std::vector<char> table =
        Bench::generatedTable(static_cast<unsigned int>(std::strtoul(argv[1], nullptr, 10)));
    std::ofstream file(argv[2], std::ios::binary);
    file.write(table.data(), static_cast<std::streamsize>(table.size()));
    return file.flush() ? 0 : 1;
}
