#pragma once

#include "OVAT/IBlockManager.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace RTTITest {

/// One storage read: absolute offset and byte count.
using StorageRead = std::pair<unsigned long long, long long>;

/// A storage failure that was asked for.
struct PlannedFailure : std::runtime_error {
    PlannedFailure() : std::runtime_error("planned storage failure") {}
};

/// Storage over a byte vector that writes down every read and can fail once, at a chosen one.
class ModelStorage : public OVAT::IBlockManager {
public:
    static constexpr std::size_t NEVER = std::numeric_limits<std::size_t>::max();

    explicit ModelStorage(std::vector<char> bytes) : m_bytes(std::move(bytes)) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (m_done++ == m_failAt)
            throw PlannedFailure();
        m_reads.emplace_back(offset, count);
        if (count <= 0 || offset > m_bytes.size() ||
            static_cast<unsigned long long>(count) > m_bytes.size() - offset)
            throw std::out_of_range("read outside the storage");
        std::memcpy(buffer, m_bytes.data() + offset, static_cast<std::size_t>(count));
        return true;
    }

    /// Lets the read with this index fail, counted from 0 over the life of the storage.
    void failAt(std::size_t index) { m_failAt = index; }

    /// The reads since the last call.
    std::vector<StorageRead> takeReads() { return std::exchange(m_reads, {}); }

private:
    std::vector<char> m_bytes;
    std::vector<StorageRead> m_reads;
    std::size_t m_done = 0;
    std::size_t m_failAt = NEVER;
};

} // namespace RTTITest
