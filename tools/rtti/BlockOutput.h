#pragma once

#include <array>
#include <cstddef>
#include <ostream>
#include <streambuf>

/// What goes to a stream, in blocks of 64 KiB, whatever the pieces are that it is written in. The
/// buffer of std::cout passes on at once all that is longer than 1 KiB.
class BlockOutput : private std::streambuf {
public:
    /// Takes the place of the stream's buffer. The blocks go to an open file of the caller's.
    BlockOutput(std::ostream& stream, int descriptor)
        : m_stream(stream), m_before(stream.rdbuf(this)), m_descriptor(descriptor) {
        clear();
    }
    BlockOutput(const BlockOutput&) = delete;
    BlockOutput& operator=(const BlockOutput&) = delete;

    /// Writes what is left and gives the stream its buffer back.
    ~BlockOutput() override;

private:
    int_type overflow(int_type c) override;
    int sync() override;
    void clear() { setp(m_block.begin(), m_block.end()); }

    static constexpr std::size_t SIZE = std::size_t{64} * 1024;

    std::ostream& m_stream;
    std::streambuf* const m_before;
    const int m_descriptor;
    std::array<char, SIZE> m_block;
};
