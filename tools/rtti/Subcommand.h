#pragma once

#include <functional>

namespace CLI {
class App;
}

/// One of the things that the program can do.
struct Subcommand {
    const CLI::App* parser;
    std::function<int()> run; ///< Gives an ExitStatus. Throws for a wrong call or an unusable file.
};

// Each adds a subcommand with its arguments to the program. main.cpp lists them in the order of
// --help; a new one is a source with such a function, and a line there and here.
Subcommand addAnnotate(CLI::App& program);
Subcommand addBuild(CLI::App& program);
Subcommand addDiff(CLI::App& program);
Subcommand addDump(CLI::App& program);
Subcommand addGraph(CLI::App& program);
Subcommand addHtml(CLI::App& program);
Subcommand addImport(CLI::App& program);
Subcommand addLeaves(CLI::App& program);
Subcommand addShow(CLI::App& program);
Subcommand addStats(CLI::App& program);
Subcommand addTranslate(CLI::App& program);
Subcommand addTree(CLI::App& program);
Subcommand addUses(CLI::App& program);
Subcommand addVerify(CLI::App& program);
