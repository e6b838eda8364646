#pragma once

#include <string>
#include <string_view>

namespace Inspect {

/// The role of a piece of text, which determines its colour.
enum class Ink {
    HEADING,
    KEYWORD, ///< A word of a language, or the kind of a type.
    NAME,    ///< A name from the design.
    NUMBER,
    COMMENT, ///< Secondary text: explanations, ids.
    ADDED,
    REMOVED,
    CHANGED,
    ERROR,
    WARNING
};

/// How text is highlighted: with the colours of a terminal, or not at all. Without colours, text
/// stays unchanged. Text must be escaped before it is painted.
class TextStyle {
public:
    /// A style without colours.
    static TextStyle plain() { return TextStyle(false); }

    /// A style with the colours of a terminal.
    static TextStyle coloured() { return TextStyle(true); }

    /// Whether `paint` changes nothing.
    bool isPlain() const { return !m_isColoured; }

    /// Returns `text` in the colour of the ink.
    std::string paint(Ink ink, std::string_view text) const;

    /// What stands before text in the colour of the ink, and after it. Empty without colours.
    /// @{
    std::string_view begin(Ink ink) const {
        return m_isColoured ? colourOf(ink) : std::string_view();
    }
    std::string_view end() const { return m_isColoured ? RESET : std::string_view(); }
    /// @}

private:
    explicit TextStyle(bool isColoured) : m_isColoured(isColoured) {}

    static std::string_view colourOf(Ink ink);

    static constexpr std::string_view RESET = "\x1B[0m";

    bool m_isColoured;
};

} // namespace Inspect
