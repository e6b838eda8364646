#include "Subcommand.h"

#include "Inspect/views/TypeUses.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

/// `rtti uses`: which type of which file, and who counts.
struct UsesOptions : FileArguments, JsonArguments, ColorArguments {
    std::string type;
    bool all = false;
};

/// Prints the types that refer to a type. The exit status is 0. Throws for a wrong call or an
/// unusable file.
int runUses(const UsesOptions& options) {
    const auto form = options.jsonForm();
    OpenedFile file(options);
    const unsigned int id = file.idOf("TYPE", options.type);
    const Inspect::TypeTable types = file.loadedTypes();
    if (form)
        (options.all ? Inspect::writeAllUsesJson : Inspect::writeUsesJson)(std::cout, types, id,
                                                                           *form);
    else
        (options.all ? Inspect::writeAllUses : Inspect::writeUses)(std::cout, types, id,
                                                                   options.style());
    return ExitStatus::DONE;
}

} // namespace

Subcommand addUses(CLI::App& program) {
    const auto options = std::make_shared<UsesOptions>();
    CLI::App* uses = program.add_subcommand("uses", "List the types that refer to a type");
    addFileArguments(*uses, *options);
    addTypeArgument(*uses, options->type)->required();
    uses->add_flag("--all", options->all,
                   "Also list types that refer to it through others: nearest first, with the "
                   "shortest path");
    addJsonArguments(*uses, *options);
    addColorArgument(*uses, *options);
    uses->footer("Example:\n  rtti uses --all examples/typefiles/ieee_rti.typ 11");
    return {uses, [options] { return runUses(*options); }};
}
