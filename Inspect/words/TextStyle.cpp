#include "Inspect/words/TextStyle.h"

namespace Inspect {

namespace {

/// The sixteen colours that every terminal has, by ink; they follow the reader's own theme.
constexpr const char* colours[] = {
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
constexpr char RESET[] = "\x1B[0m";

} // namespace

std::string TextStyle::paint(Ink ink, std::string_view text) const {
    if (!m_isColoured || text.empty())
        return std::string(text);
    return colours[static_cast<int>(ink)] + std::string(text) + RESET;
}

} // namespace Inspect
