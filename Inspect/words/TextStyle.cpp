#include "Inspect/words/TextStyle.h"

namespace Inspect {

namespace {

/// The sixteen colours that every terminal has, by ink; they follow the reader's own theme.
constexpr std::string_view colours[] = {
    "\x1B[1m",    // HEADING: bold
    "\x1B[35m",   // KEYWORD: magenta
    "\x1B[36m",   // NAME: cyan
    "\x1B[33m",   // NUMBER: yellow
    "\x1B[2m",    // COMMENT: faint
    "\x1B[32m",   // ADDED: green
    "\x1B[31m",   // REMOVED: red
    "\x1B[33m",   // CHANGED: yellow
    "\x1B[1;31m", // ERROR: bold red
    "\x1B[1;33m", // WARNING: bold yellow
};

} // namespace

std::string_view TextStyle::colourOf(Ink ink) { return colours[static_cast<int>(ink)]; }

std::string TextStyle::paint(Ink ink, std::string_view text) const {
    std::string painted(text);
    return text.empty() ? painted : painted.insert(0, begin(ink)).append(end());
}

} // namespace Inspect
