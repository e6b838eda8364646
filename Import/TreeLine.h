#pragma once

#include <cstdint>
#include <string_view>

namespace Import {

/// The address by which a tree dump calls a node; 0 for none.
using TreeAddress = std::uint64_t;

/// A line of a tree dump that stands for a node:
///
///     1:2: VAR 0x55a7 {c48al} @dt=0x55a6@(w2)ref  st [VSTATIC]  VAR
///
/// The texts are parts of the line, and live as long as it.
struct TreeLine {
    unsigned int depth = 0; ///< How many nodes there are above it.
    std::string_view kind;  ///< "VAR".

    TreeAddress address = 0;
    TreeAddress type = 0;       ///< Of what follows "@dt=", 0 for none, its own for "this".
    std::string_view typeShape; ///< What follows the second @: "(w2)ref".
    std::string_view name;      ///< As it is written; may be empty.
    std::string_view marks;     ///< What follows, up to an arrow: "[VSTATIC]  VAR".
    std::string_view target;    ///< What follows the arrow: the node that this one refers to.

    /// Whether `word` stands among the marks: "[PACKED]".
    bool has(std::string_view word) const { return marks.find(word) != std::string_view::npos; }

    /// What follows `key` among the marks, up to a blank or a bracket: "logic" of "kwd=logic".
    std::string_view valueOf(std::string_view key) const;

    /// The address that follows `key` among the marks, or 0.
    TreeAddress addressOf(std::string_view key) const;

    /// The address of the node that this one refers to, or 0.
    TreeAddress targetAddress() const;
};

/// Finds depth and kind of a line; false for one that stands for no node. Cheap: most nodes are of
/// kinds that nobody needs.
bool beginTreeLine(std::string_view text, TreeLine& line);

/// Finds the other parts of a line that was begun; false if it has no address.
bool finishTreeLine(std::string_view text, TreeLine& line);

/// Reads "0x55a74d62d210", with whatever follows; 0 for anything else.
TreeAddress treeAddress(std::string_view text);

/// Reads a bracketed range that ends the text or is followed by a blank: "[7:0]".
bool treeRange(std::string_view text, int& left, int& right);

} // namespace Import
