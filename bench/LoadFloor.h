#pragma once

#include "OVAT/IBlockManager.h"

#include <cstddef>
#include <vector>

namespace Bench {

/// What loading a whole table costs at the least: the same storage reads and record buffers, and
/// the same lasting allocations at their exact sizes, without anything being decoded.
///
/// The plan of a table is made once, from a table that was loaded: the reads in their order, and
/// for each record the allocations of its object. The floor then carries the plan out.
class LoadPlan {
public:
    explicit LoadPlan(OVAT::IBlockManager& storage);

    struct Record {
        unsigned long long address;
        unsigned int size;
        unsigned int blocksEnd; ///< Behind the last allocation for the record's object.
    };

    unsigned int typeCount() const { return static_cast<unsigned int>(m_recordOfType.size()); }
    unsigned int classCount() const { return m_classCount; }
    unsigned long long addressTable() const { return m_addressTable; }
    const std::vector<Record>& records() const { return m_records; } ///< In reading order.
    const std::vector<unsigned int>& blockSizes() const { return m_blockSizes; }

    /// For each type id, its place in `records()`.
    const std::vector<unsigned int>& recordOfType() const { return m_recordOfType; }

private:
    unsigned long long m_addressTable = 0;
    unsigned int m_classCount = 0;
    std::vector<Record> m_records;
    std::vector<unsigned int> m_blockSizes;
    std::vector<unsigned int> m_recordOfType;
};

/// The floor of a load, and of the teardown that releases the same blocks type by type.
class LoadFloor {
public:
    /// The list of blocks is set up here: it stands for the links inside the objects, which cost
    /// no allocation of their own.
    explicit LoadFloor(const LoadPlan& plan);
    LoadFloor(const LoadFloor&) = delete;
    LoadFloor& operator=(const LoadFloor&) = delete;
    ~LoadFloor();

    void load(OVAT::IBlockManager& storage);
    void tearDown();

    /// Only what setting up a manager reads and keeps.
    void readAddressTable(OVAT::IBlockManager& storage);
    void releaseTables();

private:
    const LoadPlan& m_plan;
    std::vector<void*> m_blocks;
    std::vector<void*> m_tables; ///< Of types, addresses and class ids.
};

} // namespace Bench
