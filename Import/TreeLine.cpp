#include "Import/TreeLine.h"

#include <charconv>

namespace Import {

namespace {

constexpr std::string_view ARROW = "-> ";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes what is before the next blank off the text.
std::string_view takeWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(word.size());
    return word;
}

bool startsWith(std::string_view text, std::string_view with) {
    return text.substr(0, with.size()) == with;
}

/// "@dt=this@(w2)ref" and "@dt=0x55a6@(w2)ref".
void readType(std::string_view word, TreeLine& line) {
    word.remove_prefix(word.find('=') + 1);
    line.type = startsWith(word, "this") ? line.address : treeAddress(word);
    const std::size_t end = word.find('@');
    if (end != std::string_view::npos)
        line.typeShape = word.substr(end + 1);
}

} // namespace

TreeAddress treeAddress(std::string_view text) {
    if (!startsWith(text, "0x"))
        return 0;
    TreeAddress address = 0;
    std::from_chars(text.data() + 2, text.data() + text.size(), address, 16);
    return address;
}

bool treeRange(std::string_view text, int& left, int& right) {
    const char* const end = text.data() + text.size();
    if (text.empty() || text.front() != '[')
        return false;
    const auto [colon, leftError] = std::from_chars(text.data() + 1, end, left);
    if (leftError != std::errc() || colon == end || *colon != ':')
        return false;
    const auto [bracket, rightError] = std::from_chars(colon + 1, end, right);
    return rightError == std::errc() && bracket != end && *bracket == ']';
}

bool beginTreeLine(std::string_view text, TreeLine& line) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end && *at == ' ')
        ++at;
    unsigned int depth = 0;
    while (at != end && isDigit(*at)) {
        if (++at == end || *at != ':')
            return false;
        ++at;
        ++depth;
    }
    if (depth == 0 || at == end || *at != ' ')
        return false;
    const char* const kind = ++at;
    while (at != end && *at != ' ')
        ++at;
    line.depth = depth;
    line.kind = {kind, static_cast<std::size_t>(at - kind)};
    return true;
}

bool finishTreeLine(std::string_view text, TreeLine& line) {
    text.remove_prefix(static_cast<std::size_t>(line.kind.data() - text.data()) + line.kind.size());
    if (text.empty())
        return false;
    text.remove_prefix(1);
    line.address = treeAddress(takeWord(text));
    line.type = 0;
    line.typeShape = line.name = line.marks = line.target = {};
    // Edit count, place in the source, user data and type, each after one blank; then, after two,
    // the name.
    while (text.size() > 1 && text[0] == ' ' && text[1] != ' ' && text[1] != '[') {
        std::string_view next = text.substr(1);
        const std::string_view word = takeWord(next);
        const bool isUserData = word.size() > 3 && word[0] == 'u' && isDigit(word[1]);
        if (word[0] == '@')
            readType(word, line);
        else if (word[0] != '<' && word[0] != '{' && !isUserData)
            break;
        text = next;
    }
    if (startsWith(text, "  ")) {
        text.remove_prefix(2);
        line.name = takeWord(text);
    }
    const std::size_t arrow = text.find(ARROW);
    line.marks = text.substr(0, arrow);
    if (arrow != std::string_view::npos)
        line.target = text.substr(arrow + ARROW.size());
    return line.address != 0;
}

std::string_view TreeLine::valueOf(std::string_view key) const {
    const std::size_t at = marks.find(key);
    if (at == std::string_view::npos)
        return {};
    const std::string_view value = marks.substr(at + key.size());
    return value.substr(0, value.find(' '));
}

TreeAddress TreeLine::addressOf(std::string_view key) const { return treeAddress(valueOf(key)); }

TreeAddress TreeLine::targetAddress() const {
    const std::size_t blank = target.find(' ');
    return blank == std::string_view::npos ? 0 : treeAddress(target.substr(blank + 1));
}

} // namespace Import
