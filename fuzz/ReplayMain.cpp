// Runs a target on files, and on the files below folders, each once.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::size_t replay(const fs::path& path) {
    if (fs::is_directory(path)) {
        std::size_t count = 0;
        for (const auto& entry : fs::directory_iterator(path))
            count += replay(entry.path());
        return count;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        if (!fs::exists(argv[i])) {
            std::cerr << argv[i] << ": there is no such file\n";
            return 2;
        }
        count += replay(argv[i]);
    }
    std::cout << count << " inputs replayed\n";
    return count != 0 ? 0 : 2;
}
