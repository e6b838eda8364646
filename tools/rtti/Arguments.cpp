#include "Arguments.h"

#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <limits>
#include <string>

namespace {

/// Takes decimal digits, or hexadecimal ones behind "0x". A sign is refused: the parser would take
/// a negative number for a large one.
template <typename Number>
CLI::Option* addWholeNumber(CLI::App& subcommand, const std::string& name, Number& number,
                            const std::string& description) {
    const auto take = [&number, name](const std::string& text) {
        const bool isHex = text.rfind("0x", 0) == 0;
        const std::string digits = isHex ? text.substr(2) : text;
        const char* const allowed = isHex ? "0123456789abcdefABCDEF" : "0123456789";
        if (digits.empty() || digits.find_first_not_of(allowed) != std::string::npos)
            throw CLI::ValidationError(name + ": " + text + " is not a whole number of 0 or more");
        constexpr Number MOST = std::numeric_limits<Number>::max();
        unsigned long long value = 0;
        try {
            value = std::stoull(digits, nullptr, isHex ? 16 : 10);
        } catch (const std::out_of_range&) {
            throw CLI::ValidationError(name + ": " + text + " is above " + std::to_string(MOST));
        }
        if (value > MOST)
            throw CLI::ValidationError(name + ": " + text + " is above " + std::to_string(MOST));
        number = static_cast<Number>(value);
    };
    return subcommand.add_option_function<std::string>(name, take, description)->type_name("N");
}

} // namespace

CLI::Option* addNumber(CLI::App& subcommand, const std::string& name, unsigned long long& number,
                       const std::string& description) {
    return addWholeNumber(subcommand, name, number, description);
}

CLI::Option* addNumber(CLI::App& subcommand, const std::string& name, unsigned int& number,
                       const std::string& description) {
    return addWholeNumber(subcommand, name, number, description);
}

void addPartLimit(CLI::App& subcommand, unsigned int& limit) {
    addNumber(subcommand, "--limit", limit,
              "Parts to look at before the output is cut (" + std::to_string(limit) + ")");
}

void reportPartLimit(bool isWhole, unsigned int limit) {
    if (!isWhole)
        std::cerr << "rtti: the type has more than " << limit
                  << " parts: the rest is left out (see --limit)\n";
}

void addRangeLists(CLI::App& subcommand, Inspect::RangeLists& lists) {
    subcommand.add_flag_callback(
        "--all", [&lists] { lists = Inspect::RangeLists::WHOLE; },
        "Show long lists of ranges completely");
}

CLI::Option* addChoice(CLI::App& subcommand, const std::string& name, std::string& choice,
                       const std::vector<std::string>& words, const std::string& what,
                       const std::string& description) {
    const std::string list = '{' + CLI::detail::join(words, ",") + '}';
    return subcommand.add_option(name, choice, description)
        ->check(CLI::IsMember(words))
        ->option_text(what + ':' + list);
}

void addStorageArguments(CLI::App& subcommand, StorageArguments& arguments) {
    subcommand.add_option("FILE", arguments.file, "Storage file; - for standard input")->required();
    addNumber(subcommand, "--offset", arguments.offset,
              "Offset of the type file in FILE, in bytes (0)");
}

void addFileArguments(CLI::App& subcommand, FileArguments& arguments) {
    addStorageArguments(subcommand, arguments);
    subcommand.add_flag("--force", arguments.force, "Load the file even if it has errors");
}

std::optional<Inspect::JsonForm> JsonArguments::jsonForm() const {
    if (json && ndjson)
        throw CLI::ValidationError("--json and --ndjson exclude one another");
    if (json)
        return Inspect::JsonForm::DOCUMENT;
    return ndjson ? std::optional(Inspect::JsonForm::LINES) : std::nullopt;
}

void addJsonArguments(CLI::App& subcommand, JsonArguments& arguments) {
    subcommand.add_flag("--json", arguments.json, "Print a JSON document");
    subcommand.add_flag("--ndjson", arguments.ndjson,
                        "The same, with one JSON object on each line");
}

Inspect::TextStyle ColorArguments::style() const {
    const bool isColored = color == "always" || (color == "auto" && isColorWelcome());
    return isColored ? Inspect::TextStyle::coloured() : Inspect::TextStyle::plain();
}

void addColorArgument(CLI::App& subcommand, ColorArguments& arguments) {
    addChoice(subcommand, "--color", arguments.color, {"auto", "always", "never"}, "WHEN",
              "When to print in colours (auto: on a terminal)");
}

CLI::Option* addTypeArgument(CLI::App& subcommand, std::string& type) {
    return subcommand.add_option("TYPE", type, "Id or name of a type");
}
