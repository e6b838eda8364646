#include "Subcommand.h"

#include "Inspect/diff/TypeDiffPrinter.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

/// `rtti diff`: which files, and how to print what differs.
struct DiffOptions : ColorArguments {
    FileArguments a, b;
    bool json = false;
    Inspect::RangeLists lists = Inspect::RangeLists::SHORT;
};

/// Prints the differences between the types of two files to standard output. The exit status: 0 for
/// the same types, under whatever ids, else 1. Throws for a wrong call or an unusable file.
int runDiff(const DiffOptions& options) {
    OpenedFile a(options.a);
    OpenedFile b(options.b);
    const Inspect::TypeTable typesOfA = a.loadedTypes();
    const Inspect::TypeTable typesOfB = b.loadedTypes();
    const Inspect::TypeDiff diff(typesOfA, typesOfB);
    if (options.json)
        Inspect::printDiffJson(std::cout, diff);
    else
        Inspect::printDiffText(std::cout, diff, options.style(), options.lists);
    const bool isSame = diff.verdict() == Inspect::DiffVerdict::IDENTICAL ||
                        diff.verdict() == Inspect::DiffVerdict::RENUMBERED;
    return isSame ? ExitStatus::DONE : ExitStatus::FAULTY;
}

} // namespace

Subcommand addDiff(CLI::App& program) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* diff = program.add_subcommand("diff", "Compare the types of two type files");
    diff->add_option("A", options->a.file, "Storage file with the types before")->required();
    diff->add_option("B", options->b.file, "Storage file with the types after")->required();
    addNumber(*diff, "--offset-a", options->a.offset, "Offset of the type file in A, in bytes (0)");
    addNumber(*diff, "--offset-b", options->b.offset, "Offset of the type file in B, in bytes (0)");
    diff->add_flag_callback(
        "--force", [options] { options->a.force = options->b.force = true; },
        "Load files even if they have errors");
    addRangeLists(*diff, options->lists);
    diff->add_flag("--json", options->json, "Print the differences as JSON");
    addColorArgument(*diff, *options);
    diff->footer("Types are compared by kind, name and shape, never by id. The verdicts are\n"
                 "  identical     each id has the same type in both files\n"
                 "  renumbered    both files have the same types, under other ids\n"
                 "  compatible    every type of A has an equal in B, and B has more types\n"
                 "  incompatible  a type of A was changed or removed\n\n"
                 "Example:\n  rtti diff examples/typefiles/ibex_slang.typ "
                 "examples/typefiles/ibex_vltree.typ\n\n"
                 "The exit status is 0 for identical and renumbered, 1 for compatible and "
                 "incompatible.");
    return {diff, [options] { return runDiff(*options); }};
}
