#include "DumpCommand.h"
#include "OpenedFile.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

namespace {

constexpr int WRONG_CALL = 2;

/// One line on standard error, whatever the text holds.
int fail(const std::string& what, int exitStatus) {
    std::string line = "rtti: " + what;
    for (char& c : line) {
        if (c == '\n')
            c = ' ';
    }
    std::cout.flush();
    std::cerr << line << '\n';
    return exitStatus;
}

void addDump(CLI::App& program, DumpOptions& options) {
    CLI::App* dump = program.add_subcommand("dump", "Print the types of a type file");
    dump->add_option("FILE", options.file, "Storage file")->required();
    dump->add_option("--offset", options.offset, "Where in FILE the type file begins (0)");
    dump->add_option("--id", options.ids, "Only the type of this id; may be repeated")
        ->take_all()
        ->expected(1)
        ->type_name("N");
    dump->add_option("--kind", options.kind,
                     "Only types of this kind, such as \"packed struct\", struct or queue");
    dump->add_option("--name", options.name, "Only types whose name matches this shell pattern")
        ->type_name("GLOB");
    dump->add_flag("--trace", options.trace, "Print the debug trace of the load instead");
    dump->footer("Example:\n  rtti dump --kind struct --name 'ibex_*' "
                 "examples/typefiles/ibex_slang.typ");
}

int run(CLI::App& program, const DumpOptions& options, int argc, char** argv) {
    try {
        program.parse(argc, argv);
        return runDump(options);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return program.exit(error); // --help
        return fail(std::string(error.what()) + " (see rtti --help)", WRONG_CALL);
    } catch (const UnusableFile& error) {
        return fail(options.file + ": " + error.what(), error.exitStatus());
    } catch (const std::bad_alloc&) {
        return fail(options.file + ": there is not enough memory for what it asks for", WRONG_CALL);
    } catch (const std::out_of_range& error) {
        return fail(options.file + ": too short: " + error.what(), WRONG_CALL);
    } catch (const std::exception& error) {
        const std::string text = error.what();
        const bool namesFile = text.rfind(options.file, 0) == 0;
        return fail(namesFile ? text : options.file + ": " + text, WRONG_CALL);
    }
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // A reader that has gone shows as an output that fails.
    CLI::App program("Shows the types in the type files of an HDL simulator.", "rtti");
    program.require_subcommand(1);
    program.footer(
        "Example:\n  rtti dump --kind 'packed struct' examples/typefiles/ibex_slang.typ\n\n"
        "Exit status: 0 done, 1 the file has faults, 2 the call is wrong or the file "
        "cannot be read.");
    DumpOptions options;
    addDump(program, options);
    const int status = run(program, options, argc, argv);
    if (!std::cout.flush())
        return fail("standard output: the text could not be written", WRONG_CALL);
    return status;
}
