#pragma once

#include "Inspect/words/Text.h"

#include <cstddef>
#include <string_view>

namespace Inspect {

/// Until its end, each line that is written to a text gets a prefix. The text must outlive it and
/// has only one at a time; what it begins in the middle of a line stays before the first prefix.
class IndentedLines {
public:
    /// What a single line looks like.
    enum class Single {
        LIKE_OTHERS,
        BEHIND_LABEL ///< It stands behind what is before it and a space; more lines go below.
    };

    /// `prefix` has to live as long.
    IndentedLines(Text& text, std::string_view prefix, Single single = Single::LIKE_OTHERS);
    IndentedLines(const IndentedLines&) = delete;
    IndentedLines& operator=(const IndentedLines&) = delete;

    /// Completes the lines. Without this call, what has not gone to the text's stream is of no use.
    void end() {
        prefixLines();
        m_text.m_lines = nullptr;
    }
    ~IndentedLines() { m_text.m_lines = nullptr; }

private:
    friend class Text;

    /// Gives the lines so far their prefixes. Returns the size of the part of the text that is as
    /// it has to be.
    std::size_t prefixLines();
    void indent();

    Text& m_text;
    const std::string_view m_prefix;
    std::size_t m_begin; ///< Of what has no prefixes yet.
    bool m_isLineStart = true;
    bool m_mayBeSingle;
};

} // namespace Inspect
