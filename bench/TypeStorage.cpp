#include "bench/TypeStorage.h"

#include "bench/GeneratedTable.h"

#include <map>

namespace Bench {

TypeStorage::TypeStorage(unsigned int typeCount)
    : bytes(generatedTable(typeCount)), storage(bytes.data(), bytes.size()), plan(storage) {}

TypeStorage& TypeStorage::of(unsigned int typeCount) {
    static std::map<unsigned int, std::unique_ptr<TypeStorage>> made;
    std::unique_ptr<TypeStorage>& storage = made[typeCount];
    if (!storage)
        storage = std::make_unique<TypeStorage>(typeCount);
    return *storage;
}

const TypeList& TypeStorage::types() {
    if (m_types.empty()) {
        m_manager.setupDeserializer(storage, 0);
        m_types = allTypes(m_manager);
    }
    return m_types;
}

} // namespace Bench
