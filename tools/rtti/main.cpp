#include "BlockOutput.h"
#include "ExitStatus.h"
#include "HelpFormatter.h"
#include "Inspect/words/TypeText.h"
#include "NearestWord.h"
#include "Subcommand.h"
#include "Terminal.h"
#include "UnusableFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace {

using AddSubcommand = Subcommand(CLI::App&);

/// In the order of --help.
constexpr AddSubcommand* SUBCOMMANDS[] = {addDump,      addShow,  addTree,   addLeaves,   addUses,
                                          addStats,     addGraph, addDiff,   addAnnotate, addHtml,
                                          addTranslate, addBuild, addVerify, addImport};

constexpr std::string_view NO_MEMORY = "there is not enough memory";

/// One line on standard error. What a file's bytes or a call's words brought along is escaped, so
/// that it does nothing to a terminal.
int fail(std::string_view what, int exitStatus) {
    std::cout.flush();
    try {
        const std::string line = Inspect::escaped(what);
        std::cerr << "rtti: " << line << '\n';
    } catch (const std::bad_alloc&) {
        std::cerr << "rtti: " << NO_MEMORY << '\n';
    }
    return exitStatus;
}

std::vector<std::string> subcommandNames(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* subcommand : program.get_subcommands({}))
        names.push_back(subcommand->get_name());
    return names;
}

/// Throws CLI::ParseError for a first word that is no subcommand.
void checkSubcommand(const CLI::App& program, int argc, char** argv) {
    const std::string word = argc > 1 ? argv[1] : "";
    const std::vector<std::string> names = subcommandNames(program);
    if (word.empty() || word.front() == '-' ||
        std::find(names.begin(), names.end(), word) != names.end())
        return;
    throw CLI::ValidationError("there is no subcommand \"" + word + "\"; the nearest is \"" +
                               nearestWord(word, names) + '"');
}

/// What is wrong with a call, and where to read more.
int failCall(const CLI::App& program, const CLI::ParseError& error) {
    const auto chosen = program.get_subcommands();
    const std::string help = chosen.empty() ? "" : chosen.front()->get_name() + ' ';
    return fail(std::string(error.what()) + " (see rtti " + help + "--help)", ExitStatus::UNUSABLE);
}

/// Calls the subcommand that the arguments ask for; whatever it throws becomes one line and an exit
/// status.
int run(CLI::App& program, const std::vector<Subcommand>& subcommands, int argc, char** argv) {
    try {
        checkSubcommand(program, argc, argv);
        program.parse(argc, argv);
        return std::find_if(subcommands.begin(), subcommands.end(),
                            [](const Subcommand& s) { return s.parser->parsed(); })
            ->run();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return program.exit(error); // --help and --version
        return failCall(program, error);
    } catch (const UnusableFile& error) {
        return fail(error.what(), error.exitStatus());
    } catch (const std::bad_alloc&) {
        return fail(NO_MEMORY, ExitStatus::UNUSABLE);
    } catch (const std::exception& error) {
        return fail(error.what(), ExitStatus::UNUSABLE);
    }
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): no memory for the options, before there is a call.
int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_DFL); // A reader that has gone ends the program without a word.
    std::ios::sync_with_stdio(
        false); // Nothing here reads or prints with stdio; a call for each word is slow.
    const BlockOutput output(std::cout, STDOUT_FILENO);
    CLI::App program("Shows, makes, verifies and compares the type files of an HDL simulator.",
                     "rtti");
    program.formatter(std::make_shared<HelpFormatter>(textWidth()));
    program.require_subcommand(1);
    program.set_version_flag("--version", "rtti " RTTI_VERSION, "Print the version");
    program.footer(
        "Example:\n  rtti dump --kind 'packed struct' examples/typefiles/ibex_slang.typ");
    std::vector<Subcommand> subcommands;
    for (AddSubcommand* const add : SUBCOMMANDS)
        subcommands.push_back(add(program));
    const int status = run(program, subcommands, argc, argv);
    if (!std::cout.flush())
        return fail("standard output: the text could not be written", ExitStatus::UNUSABLE);
    return status;
}
