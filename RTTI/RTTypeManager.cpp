#include "RTTI/RTTypeManager.h"

#include "RTTI/TypeDeserializer.h"

#include <atomic>
#include <utility>

namespace RTTI {

RTTypeManager* RTTypeManager::m_instance = nullptr;

RTTypeManager::RTTypeManager() = default;

/// Managers may end in several threads at once: it is written only where there is something to
/// clear.
RTTypeManager::~RTTypeManager() {
    const std::atomic_ref<RTTypeManager*> instance(m_instance);
    if (instance.load(std::memory_order_relaxed) != nullptr)
        instance.store(nullptr, std::memory_order_relaxed);
}

bool RTTypeManager::setupDeserializer(OVAT::IBlockManager& blockManager,
                                      unsigned long long baseOffset) {
    auto deserializer = std::make_unique<TypeDeserializer>(blockManager, baseOffset);
    deserializer->readHeader();
    deserializer->keepAlive(std::move(m_deserializer));
    m_deserializer = std::move(deserializer);
    return true;
}

RTBaseType* RTTypeManager::readAllRTTypes() {
    return m_deserializer ? m_deserializer->loadAllTypes() : nullptr;
}

RTBaseType* RTTypeManager::getRTType(unsigned int typeId) {
    return m_deserializer ? m_deserializer->loadType(typeId) : nullptr;
}

std::vector<unsigned int>& RTTypeManager::getRTClassTypeIds() {
    if (m_deserializer)
        return m_deserializer->classTypeIds();
    thread_local std::vector<unsigned int> none;
    none.clear(); // A caller may have written to the list of an earlier call.
    return none;
}

void RTTypeManager::setDebugMode() {
    if (m_deserializer)
        m_deserializer->setDebugMode(true);
}

void RTTypeManager::unsetDebugMode() {
    if (m_deserializer)
        m_deserializer->setDebugMode(false);
}

} // namespace RTTI
