#pragma once

#include <string>

namespace CLI {
class App;
}

/// Which type file, and whether to load it whatever is in it.
struct FileArguments {
    std::string file;
    unsigned long long offset = 0; ///< Where in the file the type file begins.
    bool force = false;            ///< Load a file with errors, too.
};

/// FILE, --offset and --force.
void addFileArguments(CLI::App& subcommand, FileArguments& arguments);
