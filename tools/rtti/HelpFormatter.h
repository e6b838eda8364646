#pragma once

#include <CLI/App.hpp>
#include <CLI/FormatterFwd.hpp>

#include <string>

/// Breaks the lines of a text between words, so that none is longer than `width` where its words
/// allow that. A line that is indented stays so, and goes on deeper; where it is a command it goes
/// on behind a backslash.
std::string wrapped(const std::string& text, std::size_t width);

/// Lays out --help within a width, with the exit statuses at the end of each.
class HelpFormatter : public CLI::Formatter {
public:
    explicit HelpFormatter(std::size_t width);

    std::string make_description(const CLI::App* app) const override;
    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_footer(const CLI::App* app) const override;
    std::string make_subcommand(const CLI::App* subcommand) const override;
    std::string make_option(const CLI::Option* option, bool isPositional) const override;

private:
    std::string row(const std::string& name, const std::string& description) const;

    std::size_t m_width;
};
