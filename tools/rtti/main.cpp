#include "BuildCommand.h"
#include "DumpCommand.h"
#include "Inspect/JsonError.h"
#include "Inspect/TypeText.h"
#include "OpenedFile.h"
#include "ShowCommand.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

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
    dump->add_flag("--json", options.json, "Print a JSON document that rtti build reads");
    dump->add_flag("--ndjson", options.ndjson, "The same with a JSON object a line");
    dump->footer("Example:\n  rtti dump --kind struct --name 'ibex_*' "
                 "examples/typefiles/ibex_slang.typ");
}

CLI::App* addShow(CLI::App& program, ShowOptions& options) {
    CLI::App* show = program.add_subcommand("show", "Print one type with its neighbours");
    show->add_option("FILE", options.file, "Storage file")->required();
    show->add_option("ID", options.id, "The type's id")->required();
    show->add_option("--offset", options.offset, "Where in FILE the type file begins (0)");
    show->footer("Example:\n  rtti show examples/typefiles/ibex_slang.typ 4");
    return show;
}

CLI::App* addBuild(CLI::App& program, BuildOptions& options) {
    CLI::App* build = program.add_subcommand("build", "Write a type file from its JSON form");
    build
        ->add_option("TYPES", options.file, "JSON text, as rtti dump --json prints it; - for input")
        ->required();
    build->add_option("-o,--output", options.output, "Storage file to write")->required();
    build->add_option("--offset", options.offset, "Where in it the type file begins (0)");
    build
        ->add_option("--image", options.image,
                     "Storage file to take the bytes around the type file from")
        ->type_name("FILE");
    build->add_flag("--ndjson", options.ndjson, "TYPES has a JSON object a line");
    build->footer("Example:\n  rtti dump --json examples/typefiles/ibex_slang.typ > types.json\n"
                  "  rtti build types.json -o types.typ");
    return build;
}

/// Calls a subcommand; whatever it throws becomes one line and an exit status.
template <typename Command>
int run(CLI::App& program, const std::string& file, const Command& command, int argc, char** argv) {
    try {
        program.parse(argc, argv);
        return command();
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return program.exit(error); // --help
        return fail(std::string(error.what()) + " (see rtti --help)", WRONG_CALL);
    } catch (const UnusableFile& error) {
        return fail(file + ": " + error.what(), error.exitStatus());
    } catch (const Inspect::JsonError& error) {
        return fail(file + ": " + error.what(), FAULTY_FILE);
    } catch (const std::bad_alloc&) {
        return fail(file + ": there is not enough memory for what it asks for", WRONG_CALL);
    } catch (const std::out_of_range& error) {
        return fail(file + ": too short: " + error.what(), WRONG_CALL);
    } catch (const std::exception& error) {
        const std::string text = error.what();
        const bool namesFile = text.rfind(file, 0) == 0 || text.find(": ") != std::string::npos;
        return fail(namesFile ? text : file + ": " + text, WRONG_CALL);
    }
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // A reader that has gone shows as an output that fails.
    CLI::App program("Shows and makes the type files of an HDL simulator.", "rtti");
    program.require_subcommand(1);
    program.footer(
        "Example:\n  rtti dump --kind 'packed struct' examples/typefiles/ibex_slang.typ\n\n"
        "Exit status: 0 done, 1 the file has faults, 2 the call is wrong or the file "
        "cannot be read.");
    DumpOptions dump;
    ShowOptions show;
    addDump(program, dump);
    BuildOptions build;
    const CLI::App* showCommand = addShow(program, show);
    const CLI::App* buildCommand = addBuild(program, build);
    std::string file;
    const auto command = [&] {
        if (buildCommand->parsed()) {
            file = build.file;
            return runBuild(build);
        }
        const bool isShow = showCommand->parsed();
        file = isShow ? show.file : dump.file;
        return isShow ? runShow(show) : runDump(dump);
    };
    const int status = run(program, file, command, argc, argv);
    if (!std::cout.flush())
        return fail("standard output: the text could not be written", WRONG_CALL);
    return status;
}
