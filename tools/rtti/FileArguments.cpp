#include "FileArguments.h"

#include <CLI/CLI.hpp>

void addFileArguments(CLI::App& subcommand, FileArguments& arguments) {
    subcommand.add_option("FILE", arguments.file, "Storage file")->required();
    subcommand.add_option("--offset", arguments.offset, "Where in FILE the type file begins (0)");
    subcommand.add_flag("--force", arguments.force, "Load the file even if it has errors");
}
