#pragma once

#include <charconv>
#include <cstddef>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>

namespace Inspect {

class IndentedLines;

/// Text that is put together piece by piece in one buffer, for a stream or for its own sake. A
/// piece costs little more than copying its bytes.
class Text {
public:
    /// Text that stays in memory.
    Text() = default;

    /// Text for a stream, which must outlive it. It goes there whenever `MOST_HELD` bytes have come
    /// together, and with `flush`; what comes after the last `flush` may never get there. What the
    /// stream throws passes through.
    explicit Text(std::ostream& out) : m_out(&out) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    /// Adds text, a character, or a whole number in decimal digits.
    /// @{
    Text& operator<<(std::string_view text) {
        text.copy(room(text.size()), text.size());
        m_size += text.size();
        return *this;
    }
    Text& operator<<(char c) {
        *room(1) = c;
        ++m_size;
        return *this;
    }
    template <typename Number,
              std::enable_if_t<std::is_integral_v<Number> && !std::is_same_v<Number, char> &&
                                   !std::is_same_v<Number, bool>,
                               int> = 0>
    Text& operator<<(Number number) {
        return digits(number, 10);
    }
    /// @}

    /// Adds a whole number in lower-case digits of a base.
    template <typename Number> Text& digits(Number number, int base) {
        constexpr std::size_t MOST_DIGITS = std::numeric_limits<Number>::digits + 2;
        char* const begin = room(MOST_DIGITS);
        m_size += static_cast<std::size_t>(
            std::to_chars(begin, begin + MOST_DIGITS, number, base).ptr - begin);
        return *this;
    }

    /// What has not gone to the stream. Valid until the text changes.
    std::string_view view() const { return {m_bytes.get(), m_size}; }

    /// Of `view`.
    std::size_t size() const { return m_size; }

    /// Leaves only the first `size` bytes of what has not gone to the stream.
    void truncate(std::size_t size) { m_size = size; }

    /// Hands all text to the stream, if there is one. Within lines that may still become a single
    /// one, only what is before them.
    void flush();

    /// The most bytes that wait for the stream, unless one piece is longer.
    static constexpr std::size_t MOST_HELD = std::size_t{64} * 1024;

private:
    friend class IndentedLines;

    /// Space for `size` more bytes, at the end.
    char* room(std::size_t size) {
        if (m_capacity - m_size < size)
            makeRoom(size);
        return m_bytes.get() + m_size;
    }
    void makeRoom(std::size_t size);
    void grow(std::size_t size);

    std::ostream* m_out = nullptr;
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_capacity = 0;
    std::size_t m_size = 0;           ///< What follows in `m_bytes` is room.
    IndentedLines* m_lines = nullptr; ///< Those being written.
    std::string m_aside;              ///< Lines that are about to get their prefixes.
};

/// The text that a function writes.
template <typename Write> std::string written(Write write) {
    Text text;
    write(text);
    return std::string(text.view());
}

} // namespace Inspect
