#pragma once

#include <cstddef>
#include <istream>
#include <memory>
#include <streambuf>
#include <string_view>

namespace Inspect {

/// A place in a text: the line, from 1, and how many characters of it have been read.
struct TextPlace {
    std::size_t line = 1;
    std::size_t column = 0;

    void advance(std::string_view text);
};

/// A text that two readers share: one takes it character by character, as a stream's, the other one
/// looks at what comes and passes it over where it knows it. Memory use does not grow with the
/// text.
class JsonWindow : public std::streambuf {
public:
    /// Reads from where `in` is. Keeps a reference to it.
    explicit JsonWindow(std::istream& in);

    /// What comes next: 128 KiB of it, or more, or all that there is.
    std::string_view ahead();

    /// Passes over text at the front of `ahead`; the first reader does not see it.
    void pass(std::size_t size);

    /// Where the first reader is when it has counted lines and columns up to `place`.
    TextPlace placeOf(TextPlace place) const;

private:
    static constexpr std::size_t AHEAD = 128 << 10;
    static constexpr std::size_t SIZE = 4 * AHEAD;

    int_type underflow() override;

    /// Moves what is left to the front and fills the rest.
    void fill();

    /// Counts what the first reader has taken since the last call.
    void count();

    std::size_t left() const { return static_cast<std::size_t>(egptr() - gptr()); }

    std::streambuf& m_in;
    std::unique_ptr<char[]> m_text;
    const char* m_counted; ///< Up to here the places have been advanced.
    bool m_isAtEnd = false;
    TextPlace m_counts; ///< As the first reader counts.
    TextPlace m_place;  ///< With what has been passed over.
    TextPlace m_countsAtPass, m_placeAtPass;
};

} // namespace Inspect
