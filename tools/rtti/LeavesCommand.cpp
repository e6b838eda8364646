#include "Subcommand.h"

#include "Inspect/views/TypeLeaves.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

/// `rtti leaves`: which type of which file.
struct LeavesOptions : FileArguments, JsonArguments, ColorArguments {
    std::string type;
    Inspect::LeavesRequest request;
};

/// Prints the values that a type is made of. The exit status is 0. Throws for a wrong call or an
/// unusable file.
int runLeaves(LeavesOptions& options) {
    const auto form = options.jsonForm();
    OpenedFile file(options, OpenedFile::Verified::AS_ASKED);
    options.request.id = file.idOf("TYPE", options.type);
    const bool isWhole =
        form ? Inspect::writeLeavesJson(std::cout, file.types(), options.request, *form)
             : Inspect::writeLeaves(std::cout, file.types(), options.request, options.style());
    reportPartLimit(isWhole, options.request.limit);
    return ExitStatus::DONE;
}

} // namespace

Subcommand addLeaves(CLI::App& program) {
    const auto options = std::make_shared<LeavesOptions>();
    CLI::App* leaves =
        program.add_subcommand("leaves", "List the values in a type, with bits and ranges");
    addFileArguments(*leaves, *options);
    addTypeArgument(*leaves, options->type)->required();
    addPartLimit(*leaves, options->request.limit);
    addRangeLists(*leaves, options->request.lists);
    addJsonArguments(*leaves, *options);
    addColorArgument(*leaves, *options);
    leaves->footer("A leaf is a value, or an array of values with all of its dimensions. An array "
                   "of structs is part of the path, with its ranges: pkt_t.lanes[0 to 3].data. "
                   "The ranges are those of rtti tree. The bits are those in the "
                   "outermost packed value around the leaf, for example 13:12; in a packed array "
                   "of structs those in the element at the right bound, followed by the number of "
                   "elements and the distance between them: 13:12 (4 every 20).\n"
                   "\n"
                   "Example:\n  rtti leaves examples/typefiles/svkinds_slang.typ 33");
    return {leaves, [options] { return runLeaves(*options); }};
}
