// The memory of a loaded table and of its load: heap per type beside the floor, and stack per
// nested record.
//
//   memory_use TYPES     one line of JSON

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeBuilding.h"
#include "TypeFile/TypeFileWriter.h"
#include "bench/GeneratedTable.h"
#include "bench/LoadFloor.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>

namespace {

std::size_t heapInUse() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// What `load` leaves on the heap.
double heapOf(const std::function<void()>& load) {
    const std::size_t before = heapInUse();
    load();
    return static_cast<double>(heapInUse() - before);
}

/// Notes how far down the stack reaches where it is read.
class StackStorage : public OVAT::IBlockManager {
public:
    explicit StackStorage(OVAT::IBlockManager& storage) : m_storage(storage) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        const char here = 0;
        m_lowest = std::min(m_lowest, reinterpret_cast<std::uintptr_t>(&here));
        return m_storage.read(offset, buffer, count);
    }
    std::uintptr_t lowest() const { return m_lowest; }

private:
    OVAT::IBlockManager& m_storage;
    std::uintptr_t m_lowest = static_cast<std::uintptr_t>(-1);
};

template <typename Type> std::vector<char> chainOf(unsigned int length) {
    TypeFile::TypeFileWriter writer;
    for (unsigned int id = 1; id < length; ++id) {
        Type type;
        TypeFile::setName(type, "t");
        if constexpr (std::is_same_v<Type, RTTI::RTTypedefType>)
            type.m_dataTypeId = id;
        else if constexpr (std::is_same_v<Type, RTTI::RTArrayType>)
            type.m_elementTypeId = id;
        else if constexpr (std::is_same_v<Type, RTTI::RTDiscreteEnumType>)
            type.m_baseTypeId = id;
        else
            TypeFile::addMember(type, "m", id);
        writer.add(type);
    }
    RTTI::RTIntType end;
    TypeFile::setName(end, "end");
    writer.add(end);
    return writer.finish();
}

std::uintptr_t lowestStackOf(const std::vector<char>& chain) {
    OVAT::MemoryBlockManager bytes(chain.data(), chain.size());
    StackStorage storage(bytes);
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    manager.getRTType(0);
    return storage.lowest();
}

/// Stack that one more record takes in a chain of types of one kind.
template <typename Type> double stackARecord() {
    constexpr unsigned int SHORT = 100;
    constexpr unsigned int LONG = 900;
    return static_cast<double>(lowestStackOf(chainOf<Type>(SHORT)) -
                               lowestStackOf(chainOf<Type>(LONG))) /
           (LONG - SHORT);
}

} // namespace

int main(int argc, char** argv) {
    const unsigned int types = argc == 2 ? static_cast<unsigned int>(std::atoi(argv[1])) : 0;
    if (types == 0) {
        std::cerr << "memory_use TYPES\n";
        return 2;
    }
    const std::vector<char> table = Bench::generatedTable(types);
    OVAT::MemoryBlockManager storage(table.data(), table.size());
    const Bench::LoadPlan plan(storage);
    RTTI::RTTypeManager manager;
    const double heap = heapOf([&] {
        manager.setupDeserializer(storage, 0);
        manager.readAllRTTypes();
    });
    Bench::LoadFloor floor(plan);
    const double least = heapOf([&] { floor.load(storage); });
    const double stack =
        std::max({stackARecord<RTTI::RTTypedefType>(), stackARecord<RTTI::RTArrayType>(),
                  stackARecord<RTTI::RTDiscreteEnumType>(), stackARecord<RTTI::RTRecordType>(),
                  stackARecord<RTTI::RTClassType>()});
    std::cout << "{\"types\": " << types << ", \"heap\": " << heap / types
              << ", \"heapFloor\": " << least / types << ", \"stack\": " << stack << "}\n";
}
