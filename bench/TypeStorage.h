#pragma once

#include "OVAT/MemoryBlockManager.h"
#include "bench/AllTypes.h"
#include "bench/LoadFloor.h"

#include <memory>
#include <vector>

namespace Bench {

/// A generated table in memory, and the plan of its load. Made once a type count and program.
struct TypeStorage {
    explicit TypeStorage(unsigned int typeCount);

    static TypeStorage& of(unsigned int typeCount);

    /// All types, by id, loaded when they are first asked for.
    const TypeList& types();

    std::vector<char> bytes;
    OVAT::MemoryBlockManager storage;
    LoadPlan plan;

private:
    RTTI::RTTypeManager m_manager;
    TypeList m_types;
};

} // namespace Bench
