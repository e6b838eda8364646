#include "fuzz/LoadedTypes.h"

#include "fuzz/Attempt.h"
#include "fuzz/TypeFileMutator.h"

namespace Fuzz {

LoadedTypes::LoadedTypes(const void* data, std::size_t size)
    : m_storage(data, size), m_types(typeCountOf(data, size)) {
    attempt(size, [this] {
        m_manager.setupDeserializer(m_storage, 0);
        m_manager.readAllRTTypes();
    });
    for (unsigned int id = 0; id < count(); ++id)
        attempt(size, [this, id] { m_types[id] = m_manager.getRTType(id); });
}

} // namespace Fuzz
