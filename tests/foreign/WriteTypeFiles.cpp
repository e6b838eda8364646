// write_type_files FOLDER FILE...: type files of all kinds, to be compared with those that the same
// program writes on another machine. A FILE that is a type file is loaded and written at another
// offset; any other is imported. A table that is generated is written as well.

#include "Import/Importer.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "bench/GeneratedTable.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr unsigned long long OFFSET = 0x12345;

void rewrite(const fs::path& path, const std::string& output) {
    OVAT::FileBlockManager storage(path);
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    TypeFile::TypeFileWriter writer(OFFSET);
    for (unsigned int id = 0; const RTTI::RTBaseType* type = manager.getRTType(id); ++id)
        writer.add(*type);
    writer.finishFile(output);
}

void import(const fs::path& path, const std::string& output) {
    Import::Notes notes;
    Import::Importer importer({}, notes);
    std::ifstream stream(path, std::ios::binary);
    Import::Input input(stream, path.filename());
    importer.read(input);
    TypeFile::TypeFileWriter writer;
    importer.finish([&](const RTTI::RTBaseType& type) { writer.add(type); });
    writer.finishFile(output);
}

void write(const std::vector<char>& table, const std::string& output) {
    std::ofstream(output, std::ios::binary)
        .write(table.data(), static_cast<std::streamsize>(table.size()));
}

} // namespace

int main(int argc, char** argv) {
    try {
        const fs::path folder = argv[1];
        fs::create_directories(folder);
        for (int i = 2; i < argc; ++i) {
            const fs::path path = argv[i];
            const std::string output = folder / path.filename();
            if (path.extension() == ".typ")
                rewrite(path, output);
            else
                import(path, output + ".typ");
        }
        write(Bench::generatedTable(2000), folder / "generated.typ");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
