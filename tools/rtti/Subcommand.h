#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
}

/// One of the things that the program can do. What it refers to lives as long as `run`.
struct Subcommand {
    const CLI::App* parser;
    const std::string& file;  ///< That messages name; it may change while `run` runs.
    std::function<int()> run; ///< The exit status. Throws for a wrong call or an unusable file.
};

// Each adds a subcommand with its arguments to the program.
Subcommand addAnnotate(CLI::App& program);
Subcommand addBuild(CLI::App& program);
Subcommand addDiff(CLI::App& program);
Subcommand addDump(CLI::App& program);
Subcommand addGraph(CLI::App& program);
Subcommand addHtml(CLI::App& program);
Subcommand addLeaves(CLI::App& program);
Subcommand addShow(CLI::App& program);
Subcommand addStats(CLI::App& program);
Subcommand addTree(CLI::App& program);
Subcommand addUses(CLI::App& program);
Subcommand addVerify(CLI::App& program);
