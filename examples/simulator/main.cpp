// The simulator's side: reads a type file and asks its types.
//
//   read_types FILE

#include <OVAT/IBlockManager.h>
#include <RTTI/ConstraintStack.h>
#include <RTTI/RTType.h>
#include <RTTI/RTTypeManager.h>

#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace {

/// The simulator's storage: here a file, read into memory.
class Storage : public OVAT::IBlockManager {
public:
    explicit Storage(const char* path) {
        std::ifstream file(path, std::ios::binary);
        if (!file)
            throw std::runtime_error(std::string(path) + " cannot be read");
        m_bytes.assign(std::istreambuf_iterator<char>(file), {});
    }

    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (count < 0 || offset > m_bytes.size() ||
            static_cast<unsigned long long>(count) > m_bytes.size() - offset)
            throw std::out_of_range("the type file is too short");
        std::memcpy(buffer, m_bytes.data() + offset, static_cast<std::size_t>(count));
        return true;
    }

private:
    std::vector<char> m_bytes;
};

constexpr const char* encodings[] = {"4-State", "2-State", "Byte", "Unpadded-Byte"};

void print(const RTTI::RTBaseType& type) {
    Brakel_tolv::ConstraintStack<RTTI::FullConstraints> stack;
    std::vector<RTTI::FullConstraints> ranges;
    type.populateTypeConstraints(stack, ranges);
    std::cout << type.m_name << ": " << encodings[type.getValueEncoding()];
    for (const RTTI::FullConstraints& range : ranges)
        std::cout << " [" << range.si << ':' << range.ei << ']';
    std::cout << '\n';
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: read_types FILE\n";
        return 2;
    }
    try {
        Storage storage(argv[1]);
        RTTI::RTTypeManager manager; // Owns the types; the storage outlives it.
        manager.setupDeserializer(storage, 0);
        manager.readAllRTTypes();
        for (unsigned int id = 0; const RTTI::RTBaseType* type = manager.getRTType(id); ++id)
            print(*type);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
