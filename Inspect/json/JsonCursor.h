#pragma once

#include <charconv>
#include <concepts>
#include <cstring>
#include <string_view>
#include <system_error>

namespace Inspect {

/// Takes JSON off the front of a text by someone who knows what comes. What is asked for is passed
/// over if it is there, with the blanks around it; else the answer is false.
class JsonCursor {
public:
    explicit JsonCursor(std::string_view text)
        : m_at(text.data()), m_end(text.data() + text.size()) {}

    /// Where the text goes on.
    const char* at() const { return m_at; }

    /// A bracket or a comma.
    bool take(char c) {
        if (!next(c))
            return false;
        ++m_at;
        return true;
    }

    /// Whether this bracket, comma or quote is what comes.
    bool next(char c) {
        skipBlanks();
        return m_at != m_end && *m_at == c;
    }

    /// A word without quotes.
    bool takeWord(std::string_view word) {
        skipBlanks();
        return takeHere(word);
    }

    /// The key of a member and its colon; nothing is passed over where another key comes.
    bool takeKey(std::string_view name, bool isFirst) {
        const char* const begin = m_at;
        if ((isFirst || take(',')) && take('"') && takeHere(name) && takeHere("\"") && take(':'))
            return true;
        m_at = begin;
        return false;
    }

    /// A whole number in the range of its type.
    template <std::integral Number> bool take(Number& value) {
        skipBlanks();
        const char* const begin = m_at;
        const auto [end, error] = std::from_chars(m_at, m_end, value);
        m_at = end;
        const char* const digits = begin != m_end && *begin == '-' ? begin + 1 : begin;
        return error == std::errc() && (*digits != '0' || end == digits + 1);
    }

    /// A string of printable ASCII without escapes, as long as the text lives.
    bool take(std::string_view& string);

    /// A number, whatever its form.
    bool takeNumber(std::string_view& digits);

private:
    void skipBlanks() {
        while (m_at != m_end && (*m_at == ' ' || *m_at == '\n' || *m_at == '\r' || *m_at == '\t'))
            ++m_at;
    }

    bool takeHere(std::string_view text) {
        if (static_cast<std::size_t>(m_end - m_at) < text.size() ||
            std::memcmp(m_at, text.data(), text.size()) != 0)
            return false;
        m_at += text.size();
        return true;
    }

    const char* m_at;
    const char* m_end;
};

} // namespace Inspect
