#include "HelpFormatter.h"

#include "ExitStatus.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace {

constexpr char COMMAND[] = "  rtti ";
constexpr char GOES_ON[] = " \\";

/// One line, its words broken into lines.
std::string wrappedLine(const std::string& line, std::size_t width) {
    if (line.size() <= width)
        return line;
    const bool isCommand = line.rfind(COMMAND, 0) == 0;
    const std::string end = isCommand ? GOES_ON : "";
    const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
    const std::string deeper(indent == 0 ? 0 : indent + 4, ' ');
    std::string text = line.substr(0, indent);
    std::size_t used = indent;
    bool isFirst = true;
    std::istringstream words(line);
    for (std::string word; words >> word; isFirst = false) {
        if (!isFirst && used + 1 + word.size() + end.size() > width) {
            text.append(end).append(1, '\n').append(deeper);
            used = deeper.size();
        } else if (!isFirst) {
            text += ' ';
            ++used;
        }
        text += word;
        used += word.size();
    }
    return text;
}

} // namespace

std::string wrapped(const std::string& text, std::size_t width) {
    std::string result;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        result += wrappedLine(line, width) + '\n';
    return result;
}

HelpFormatter::HelpFormatter(std::size_t width) : m_width(width) {
    column_width(std::min<std::size_t>(30, width * 2 / 5));
}

std::string HelpFormatter::make_description(const CLI::App* app) const {
    return wrapped(app->get_description(), m_width);
}

std::string HelpFormatter::make_usage(const CLI::App* app, std::string name) const {
    return wrapped(CLI::Formatter::make_usage(app, std::move(name)), m_width);
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
    return wrapped(app->get_footer() + "\n\n" + ExitStatus::TABLE, m_width);
}

std::string HelpFormatter::make_subcommand(const CLI::App* subcommand) const {
    return row(subcommand->get_name(), subcommand->get_description());
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
    return row(make_option_name(option, isPositional) + make_option_opts(option),
               option->get_description());
}

/// A name, and what it means beside it; below it where the name is too long.
std::string HelpFormatter::row(const std::string& name, const std::string& description) const {
    const std::size_t column = get_column_width();
    std::string text = "  " + name;
    if (text.size() + 1 > column)
        text += '\n' + std::string(column, ' ');
    else
        text.resize(column, ' ');
    std::istringstream lines(wrapped(description, m_width - column));
    bool isFirst = true;
    for (std::string line; std::getline(lines, line); isFirst = false)
        text += (isFirst ? "" : std::string(column, ' ')) + line + '\n';
    return text;
}
