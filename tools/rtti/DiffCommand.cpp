#include "Subcommand.h"

#include "Inspect/diff/TypeDiffPrinter.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

constexpr int SAME = 0;
constexpr int DIFFERENT = 1;

/// `rtti diff`: which files, and how to print what differs.
struct DiffOptions {
    FileArguments a, b;
    bool force = false;
    bool json = false;
    std::string file; ///< The one that is worked at, for messages.
};

/// Opens one of the files. Damage is no difference: a file with faults is as unusable as one that
/// cannot be read.
std::unique_ptr<OpenedFile> open(DiffOptions& options, FileArguments& arguments) {
    options.file = arguments.file;
    arguments.force = options.force;
    try {
        return std::make_unique<OpenedFile>(arguments);
    } catch (const UnusableFile& error) {
        throw error.asNotReadable();
    }
}

/// Prints the differences between the types of two files to standard output. The exit status: 0 for
/// the same types, under whatever ids, else 1. Throws for a wrong call or an unusable file.
int runDiff(DiffOptions& options) {
    const auto a = open(options, options.a);
    const auto b = open(options, options.b);
    options.file = options.a.file;
    const Inspect::TypeTable typesOfA = a->loadedTypes();
    options.file = options.b.file;
    const Inspect::TypeTable typesOfB = b->loadedTypes();
    const Inspect::TypeDiff diff(typesOfA, typesOfB);
    if (options.json)
        Inspect::printDiffJson(std::cout, diff);
    else
        Inspect::printDiffText(std::cout, diff, outputStyle());
    const bool isSame = diff.verdict() == Inspect::DiffVerdict::IDENTICAL ||
                        diff.verdict() == Inspect::DiffVerdict::RENUMBERED;
    return isSame ? SAME : DIFFERENT;
}

} // namespace

Subcommand addDiff(CLI::App& program) {
    const auto options = std::make_shared<DiffOptions>();
    CLI::App* diff = program.add_subcommand("diff", "Compare the types of two type files");
    diff->add_option("A", options->a.file, "Storage file with the types before")->required();
    diff->add_option("B", options->b.file, "Storage file with the types after")->required();
    diff->add_option("--offset-a", options->a.offset, "Where in A the type file begins (0)");
    diff->add_option("--offset-b", options->b.offset, "Where in B the type file begins (0)");
    diff->add_flag("--force", options->force, "Load files even if they have errors");
    diff->add_flag("--json", options->json, "Print the differences as JSON");
    diff->footer("Types are told apart by kind, name and shape, never by id. The verdict is\n"
                 "  identical     every id has the same type in both files\n"
                 "  renumbered    both files have the same types, under other ids\n"
                 "  compatible    every type of A has an equal in B, and B has more types\n"
                 "  incompatible  a type of A was changed or removed\n\n"
                 "Example:\n  rtti diff examples/typefiles/ibex_slang.typ "
                 "examples/typefiles/ibex_vltree.typ\n\n"
                 "Exit status: 0 identical or renumbered, 1 compatible or incompatible, 2 the call "
                 "is wrong or\na file cannot be used.");
    return {diff, options->file, [options] { return runDiff(*options); }};
}
