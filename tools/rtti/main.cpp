#include "Inspect/json/JsonError.h"
#include "Inspect/words/TypeText.h"
#include "OpenedFile.h"
#include "Subcommand.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace {

constexpr int FAULTY_FILE = 1;
constexpr int WRONG_CALL = 2;

/// One line on standard error. What a file's bytes or a call's words brought along is escaped, so
/// that it does nothing to a terminal.
int fail(const std::string& what, int exitStatus) {
    std::cout.flush();
    std::cerr << "rtti: " << Inspect::escaped(what) << '\n';
    return exitStatus;
}

/// Calls the subcommand that the arguments ask for; whatever it throws becomes one line and an exit
/// status.
int run(CLI::App& program, const std::vector<Subcommand>& subcommands, int argc, char** argv) {
    static const std::string none;
    const std::string* file = &none;
    try {
        program.parse(argc, argv);
        const auto chosen = std::find_if(subcommands.begin(), subcommands.end(),
                                         [](const Subcommand& s) { return s.parser->parsed(); });
        file = &chosen->file;
        return chosen->run();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return program.exit(error); // --help
        return fail(std::string(error.what()) + " (see rtti --help)", WRONG_CALL);
    } catch (const UnusableFile& error) {
        return fail(error.what(), error.exitStatus());
    } catch (const Inspect::JsonError& error) {
        return fail(*file + ": " + error.what(), FAULTY_FILE);
    } catch (const std::bad_alloc&) {
        return fail(*file + ": there is not enough memory for what it asks for", WRONG_CALL);
    } catch (const std::out_of_range& error) {
        return fail(*file + ": too short: " + error.what(), WRONG_CALL);
    } catch (const std::exception& error) {
        const std::string text = error.what();
        const bool namesFile = text.rfind(*file, 0) == 0 || text.find(": ") != std::string::npos;
        return fail(namesFile ? text : *file + ": " + text, WRONG_CALL);
    }
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): no memory for the options, before there is a call.
int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // A reader that has gone shows as an output that fails.
    CLI::App program("Shows, makes, verifies and compares the type files of an HDL simulator.",
                     "rtti");
    program.require_subcommand(1);
    program.footer(
        "Example:\n  rtti dump --kind 'packed struct' examples/typefiles/ibex_slang.typ\n\n"
        "Exit status: 0 done, 1 the file has faults, 2 the call is wrong or the file "
        "cannot be read.");
    const std::vector<Subcommand> subcommands = {
        addDump(program),     addShow(program),  addTree(program),  addLeaves(program),
        addUses(program),     addStats(program), addGraph(program), addDiff(program),
        addAnnotate(program), addHtml(program),  addBuild(program), addVerify(program)};
    const int status = run(program, subcommands, argc, argv);
    if (!std::cout.flush())
        return fail("standard output: the text could not be written", WRONG_CALL);
    return status;
}
