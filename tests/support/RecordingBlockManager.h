#pragma once

#include "OVAT/IBlockManager.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// A storage failure that was asked for.
struct PlannedFailure : std::runtime_error {
    PlannedFailure() : std::runtime_error("the storage fails") {}
};

/// A storage over an image that writes its reads down and can be told to fail.
class RecordingBlockManager : public OVAT::IBlockManager {
public:
    /// Absolute offset and number of bytes.
    using Read = std::pair<unsigned long long, long long>;

    static constexpr std::size_t NEVER = std::numeric_limits<std::size_t>::max();

    explicit RecordingBlockManager(std::string image) : m_image(std::move(image)) {}

    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (m_done++ == m_failAt)
            throw PlannedFailure();
        m_reads.emplace_back(offset, count);
        if (count <= 0 || offset > m_image.size() ||
            static_cast<unsigned long long>(count) > m_image.size() - offset)
            throw std::out_of_range("outside the image");
        std::memcpy(buffer, m_image.data() + offset, static_cast<std::size_t>(count));
        return true;
    }

    /// The reads since the last call.
    std::vector<Read> takeReads() { return std::exchange(m_reads, {}); }

    /// Lets the read with this number fail, counted from 0 over the life of the storage.
    void failAtRead(std::size_t number) { m_failAt = number; }

private:
    std::string m_image;
    std::vector<Read> m_reads;
    std::size_t m_done = 0;
    std::size_t m_failAt = NEVER;
};
