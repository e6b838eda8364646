#pragma once

#include <string>
#include <string_view>

namespace Inspect {

/// What a piece of text is, for a reader with colours.
enum class Ink {
    HEADING,
    KEYWORD, ///< Of a language, or the kind of a type.
    NAME,    ///< That the design gave.
    NUMBER,
    COMMENT, ///< Beside the point: explanations, ids.
    ADDED,
    REMOVED,
    CHANGED,
    ERROR,
    WARNING
};

/// How text is set off: with the colours of a terminal, or not at all. Without colours a text
/// passes through as it is. What is painted must be escaped already.
class TextStyle {
public:
    /// Text as it is.
    static TextStyle plain() { return TextStyle(false); }

    /// The colours of a terminal.
    static TextStyle coloured() { return TextStyle(true); }

    /// Whether `paint` changes nothing.
    bool isPlain() const { return !m_isColoured; }

    /// `text`, set off as the ink says.
    std::string paint(Ink ink, std::string_view text) const;

private:
    explicit TextStyle(bool isColoured) : m_isColoured(isColoured) {}

    bool m_isColoured;
};

} // namespace Inspect
