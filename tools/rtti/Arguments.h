#pragma once

#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/words/TextStyle.h"
#include "Inspect/words/TypeText.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

// The arguments that several subcommands take. Each function adds to a subcommand what fills the
// struct in.

/// Which storage, and where in it the type file begins.
struct StorageArguments {
    std::string file; ///< "-" for standard input.
    unsigned long long offset = 0;
};

/// FILE and --offset.
void addStorageArguments(CLI::App& subcommand, StorageArguments& arguments);

/// The same, and whether to load a type file whatever is in it.
struct FileArguments : StorageArguments {
    bool force = false;
};

/// FILE, --offset and --force.
void addFileArguments(CLI::App& subcommand, FileArguments& arguments);

/// Whether to print JSON, and how it is cut into lines.
struct JsonArguments {
    bool json = false;
    bool ndjson = false;

    /// Nothing for text. Throws CLI::ValidationError where both forms are asked for.
    std::optional<Inspect::JsonForm> jsonForm() const;
};

/// --json and --ndjson.
void addJsonArguments(CLI::App& subcommand, JsonArguments& arguments);

/// When to print in colours.
struct ColorArguments {
    std::string color = "auto";

    /// For standard output. Without a wish only a terminal gets colours, and not where the
    /// environment has NO_COLOR or says that the terminal is a dumb one.
    Inspect::TextStyle style() const;
};

/// --color.
void addColorArgument(CLI::App& subcommand, ColorArguments& arguments);

/// TYPE, an id or a name; see OpenedFile::idOf.
CLI::Option* addTypeArgument(CLI::App& subcommand, std::string& type);

/// An option that takes a whole number that is not below zero.
CLI::Option* addNumber(CLI::App& subcommand, const std::string& name, unsigned long long& number,
                       const std::string& description);
CLI::Option* addNumber(CLI::App& subcommand, const std::string& name, unsigned int& number,
                       const std::string& description);

/// --limit, for walks over all parts of a type.
void addPartLimit(CLI::App& subcommand, unsigned int& limit);

/// Says on standard error that a walk ended at its limit, unless it is whole.
void reportPartLimit(bool isWhole, unsigned int limit);

/// --all, for long lists of ranges.
void addRangeLists(CLI::App& subcommand, Inspect::RangeLists& lists);

/// An option that takes one of a few words; `what` is the word for these in --help.
CLI::Option* addChoice(CLI::App& subcommand, const std::string& name, std::string& choice,
                       const std::vector<std::string>& words, const std::string& what,
                       const std::string& description);
