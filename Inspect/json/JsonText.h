#pragma once

#include "Inspect/json/JsonValues.h"

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string_view>
#include <vector>

namespace Inspect {

/// A line of JSON that is put together value by value, without a tree of them: the same text as
/// `lineText` gives. Commas are set where one value follows another. The room of a line is kept for
/// the next.
class JsonText {
public:
    std::string_view view() const { return {m_bytes.data(), m_size}; }
    void clear() { m_size = 0; }

    void openObject() { word("{"); }
    void closeObject() { append("}"); }
    void openList() { word("["); }
    void closeList() { append("]"); }

    /// The key of the value that comes next; it has nothing to escape.
    void key(std::string_view name) {
        separate();
        char* const begin = room(name.size() + 3);
        begin[0] = '"';
        std::memcpy(begin + 1, name.data(), name.size());
        begin[name.size() + 1] = '"';
        begin[name.size() + 2] = ':';
        m_size += name.size() + 3;
    }

    template <std::integral Number> void number(Number value) {
        separate();
        constexpr std::size_t MOST_DIGITS = std::numeric_limits<Number>::digits10 + 2;
        char* const begin = room(MOST_DIGITS);
        m_size += std::to_chars(begin, begin + MOST_DIGITS, value).ptr - begin;
    }

    void boolean(bool value) { word(value ? "true" : "false"); }
    void null() { word("null"); }

    /// As `nameToJson` has it.
    void name(std::string_view name);
    void name(const char* name) {
        this->name(name != nullptr ? std::string_view(name) : std::string_view());
    }

    /// Any value; slow beside the others.
    void value(const Json& json);

private:
    /// Space for `size` more bytes, at the end.
    char* room(std::size_t size) {
        if (m_bytes.size() - m_size < size)
            m_bytes.resize(2 * (m_bytes.size() + size));
        return m_bytes.data() + m_size;
    }

    void append(std::string_view text) {
        std::memcpy(room(text.size()), text.data(), text.size());
        m_size += text.size();
    }

    /// A comma, unless what comes is the first of its object or list, or the value of a key.
    void separate() {
        const char last = m_size == 0 ? '[' : m_bytes[m_size - 1];
        if (last != '{' && last != '[' && last != ':')
            append(",");
    }

    void word(std::string_view text) {
        separate();
        append(text);
    }

    std::vector<char> m_bytes;
    std::size_t m_size = 0; ///< Of the line; what follows in `m_bytes` is room.
};

} // namespace Inspect
