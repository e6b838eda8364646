#include "BuildCommand.h"
#include "DumpCommand.h"
#include "Inspect/JsonError.h"
#include "Inspect/TypeText.h"
#include "OpenedFile.h"
#include "ShowCommand.h"
#include "VerifyCommand.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <iterator>
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

constexpr char FORCE_HELP[] = "Load the file even if it has errors";

CLI::App* addDump(CLI::App& program, DumpOptions& options) {
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
    dump->add_flag("--force", options.force, FORCE_HELP);
    dump->add_flag("--trace", options.trace, "Print the debug trace of the load instead");
    dump->add_flag("--json", options.json, "Print a JSON document that rtti build reads");
    dump->add_flag("--ndjson", options.ndjson, "The same with a JSON object a line");
    dump->footer("Example:\n  rtti dump --kind struct --name 'ibex_*' "
                 "examples/typefiles/ibex_slang.typ");
    return dump;
}

CLI::App* addShow(CLI::App& program, ShowOptions& options) {
    CLI::App* show = program.add_subcommand("show", "Print one type with its neighbours");
    show->add_option("FILE", options.file, "Storage file")->required();
    show->add_option("ID", options.id, "The type's id")->required();
    show->add_option("--offset", options.offset, "Where in FILE the type file begins (0)");
    show->add_flag("--force", options.force, FORCE_HELP);
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

CLI::App* addVerify(CLI::App& program, VerifyOptions& options) {
    CLI::App* verify = program.add_subcommand("verify", "Say what is wrong with a type file");
    verify->add_option("FILE", options.file, "Storage file")->required();
    verify->add_option("--offset", options.offset, "Where in FILE the type file begins (0)");
    verify->add_flag("--json", options.json, "Print the findings as JSON");
    verify->footer("Example:\n  rtti verify examples/typefiles/ibex_slang.typ\n\n"
                   "Exit status: 0 no errors, 1 errors found, 2 the call is wrong or the file "
                   "cannot be read.");
    return verify;
}

/// What the program can do, and the file that its messages name.
struct Subcommand {
    const CLI::App* parser;
    const std::string& file;
    std::function<int()> run;
};

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
    CLI::App program("Shows, makes and verifies the type files of an HDL simulator.", "rtti");
    program.require_subcommand(1);
    program.footer(
        "Example:\n  rtti dump --kind 'packed struct' examples/typefiles/ibex_slang.typ\n\n"
        "Exit status: 0 done, 1 the file has faults, 2 the call is wrong or the file "
        "cannot be read.");
    DumpOptions dump;
    ShowOptions show;
    BuildOptions build;
    VerifyOptions verify;
    const Subcommand subcommands[] = {
        {addDump(program, dump), dump.file, [&] { return runDump(dump); }},
        {addShow(program, show), show.file, [&] { return runShow(show); }},
        {addBuild(program, build), build.file, [&] { return runBuild(build); }},
        {addVerify(program, verify), verify.file, [&] { return runVerify(verify); }},
    };
    std::string file;
    const auto command = [&] {
        const auto* chosen = std::find_if(std::begin(subcommands), std::end(subcommands),
                                          [](const Subcommand& s) { return s.parser->parsed(); });
        file = chosen->file;
        return chosen->run();
    };
    const int status = run(program, file, command, argc, argv);
    if (!std::cout.flush())
        return fail("standard output: the text could not be written", WRONG_CALL);
    return status;
}
