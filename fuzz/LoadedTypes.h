#pragma once

#include "Inspect/model/TypeTable.h"
#include "OVAT/MemoryBlockManager.h"
#include "RTTI/RTTypeManager.h"

#include <cstddef>
#include <vector>

namespace Fuzz {

/// The types of a type file in memory, loaded without a look at what is wrong with it, each as far
/// as the memory goes that a file of its size may take. The bytes stay the caller's.
class LoadedTypes {
public:
    LoadedTypes(const void* data, std::size_t size);

    /// No more than there are bytes for, whatever the header says.
    unsigned int count() const { return static_cast<unsigned int>(m_types.size()); }

    /// Null for an id without a type, and for one that is no id.
    RTTI::RTBaseType* operator[](unsigned int id) const {
        return id < count() ? m_types[id] : nullptr;
    }

    /// The types as the printers take them, as long as this lives.
    Inspect::TypeTable table() const {
        return {count(), [this](unsigned int id) { return (*this)[id]; }};
    }

private:
    OVAT::MemoryBlockManager m_storage;
    RTTI::RTTypeManager m_manager;
    std::vector<RTTI::RTBaseType*> m_types;
};

} // namespace Fuzz
