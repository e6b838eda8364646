#pragma once

#include "Inspect/words/Text.h"
#include "RTTI/RTBaseType.h"
#include "TypeFile/NamedValues.h"

#include <concepts>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Inspect {

/// Whether a character stands for itself in the ASCII text of a string.
inline bool isPlainInString(char c) { return c >= 0x20 && c < 0x7F && c != '"' && c != '\\'; }

/// JSON that is put together value by value, without a tree of them. The text is ASCII. Commas are
/// set where one value follows another. The room of a text is kept for the next.
class JsonText {
public:
    enum class Layout {
        LINES,   ///< Without blanks, and with the line breaks of `newLine` alone.
        INDENTED ///< Each value on a line of its own, two spaces further in than what it is part
                 ///< of.
    };

    explicit JsonText(Layout layout = Layout::LINES) : m_isIndented(layout == Layout::INDENTED) {}

    std::string_view view() const { return m_text.view(); }

    /// Begins another text.
    void clear() {
        m_text.truncate(0);
        m_written = NOTHING;
    }

    /// Writes what there is so far; the text goes on.
    void writeTo(std::ostream& out);

    void openObject() { open("{"); }
    void closeObject() { close("}"); }
    void openList() { open("["); }
    void closeList() { close("]"); }

    /// What comes next, the end of a list included, begins a line.
    void newLine() {
        separate();
        m_text << '\n';
    }
    void endOfLines() { m_text << '\n'; }

    /// The key of the value that comes next; it has nothing to escape.
    void key(std::string_view name) {
        separate();
        m_text << '"' << name << (m_isIndented ? "\": " : "\":");
    }

    template <typename Value> void member(std::string_view key, const Value& value) {
        this->key(key);
        this->value(value);
    }

    template <std::integral Number> void value(Number value) {
        separate();
        m_text << value;
    }

    void value(bool value) { word(value ? "true" : "false"); }
    void value(std::nullptr_t) { word("null"); }

    /// A string. Bytes that are not UTF-8 become the replacement character.
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }

    /// A string in pieces of whole characters.
    void openString() { word("\""); }
    void string(std::string_view piece);
    void closeString() { m_text << '"'; }

    /// A number that JSON's decimal digits give bit for bit, else "Infinity", "-Infinity" or the 16
    /// hexadecimal digits of a NaN. It is not copied, which in an x87 register would change a
    /// signalling NaN.
    void value(const double& value);

    /// An object with the range's fields.
    void value(const RTTI::FullConstraints& range);

    /// The value, or null.
    template <typename Value> void value(const std::optional<Value>& value) {
        if (value)
            this->value(*value);
        else
            this->value(nullptr);
    }

    /// A list.
    template <typename Value> void value(const std::vector<Value>& list) {
        openList();
        for (const Value& item : list)
            value(item);
        closeList();
    }

    /// A name: a string, or {"hex": "..."} where the bytes are not UTF-8. A null name counts as
    /// empty.
    void name(std::string_view name);
    void name(const char* name) {
        this->name(name != nullptr ? std::string_view(name) : std::string_view());
    }

    /// A value's name, or the value itself where it has none.
    template <typename Enum> void named(Enum value) {
        const char* name = TypeFile::namesOf(value).nameOf(static_cast<unsigned int>(value));
        if (name != nullptr)
            this->value(name);
        else
            this->value(static_cast<std::underlying_type_t<Enum>>(value));
    }

private:
    static constexpr char NOTHING = '\n'; ///< No comma follows it.

    char last() const { return view().empty() ? m_written : view().back(); }

    /// A comma, unless what comes is the first of its object or list, or the value of a key.
    void separate() {
        const char last = this->last();
        if (last != '{' && last != '[' && last != ':' && last != '\n' && last != ' ')
            m_text << ',';
        if (m_isIndented && last != ' ' && m_depth != 0)
            breakLine();
    }

    void word(std::string_view text) {
        separate();
        m_text << text;
    }

    void open(std::string_view bracket) {
        word(bracket);
        ++m_depth;
    }

    void close(std::string_view bracket) {
        --m_depth;
        if (m_isIndented && last() != '{' && last() != '[')
            breakLine();
        m_text << bracket;
    }

    void breakLine();
    void value(std::string_view text, std::size_t plainSize);
    void string(std::string_view text, std::size_t plainSize);
    std::size_t escape(std::string_view text);

    Text m_text;
    char m_written = NOTHING; ///< The last character in front of `m_text`.
    bool m_isIndented;
    unsigned int m_depth = 0;
};

} // namespace Inspect
