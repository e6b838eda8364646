#include "OutputFile.h"

#include "InputStorage.h"

#include <iostream>
#include <vector>

/// Hands bytes to the file in large pieces.
class OutputFile::Buffer : public std::streambuf {
public:
    explicit Buffer(const std::string& path) : m_file(path), m_bytes(PIECE) { empty(); }

    void commit() {
        writePending();
        m_file.commit();
    }

protected:
    int_type overflow(int_type c) override {
        writePending();
        if (!traits_type::eq_int_type(c, traits_type::eof()))
            sputc(traits_type::to_char_type(c));
        return traits_type::not_eof(c);
    }

private:
    static constexpr std::size_t PIECE = 1 << 16;

    void empty() { setp(m_bytes.data(), m_bytes.data() + m_bytes.size()); }

    void writePending() {
        const auto count = static_cast<unsigned long long>(pptr() - pbase());
        m_file.write(m_written, pbase(), count);
        m_written += count;
        empty();
    }

    OVAT::WholeFile m_file;
    std::vector<char> m_bytes;
    unsigned long long m_written = 0;
};

OutputFile::OutputFile(const std::string& path)
    : m_buffer(path == STANDARD_STREAM ? nullptr : std::make_unique<Buffer>(path)),
      m_stream(m_buffer == nullptr ? std::cout.rdbuf() : m_buffer.get()) {
    if (m_buffer != nullptr)
        m_stream.exceptions(std::ios::badbit); // What the file throws passes through the stream.
}

OutputFile::~OutputFile() = default;

void OutputFile::commit() {
    if (m_buffer != nullptr)
        m_buffer->commit();
    else if (!m_stream)
        std::cout.setstate(std::ios::badbit);
}
