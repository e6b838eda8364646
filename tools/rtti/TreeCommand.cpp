#include "Subcommand.h"

#include "Inspect/views/TypeTree.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

/// `rtti tree`: which type of which file, and how far down.
struct TreeOptions : FileArguments, JsonArguments, ColorArguments {
    std::string type;
    Inspect::TreeRequest request;
};

/// Prints what a type is made of. The exit status is 0. Throws for a wrong call or an unusable
/// file.
int runTree(TreeOptions& options) {
    const auto form = options.jsonForm();
    OpenedFile file(options, OpenedFile::Verified::AS_ASKED);
    options.request.id = file.idOf("TYPE", options.type);
    const bool isWhole =
        form ? Inspect::writeTreeJson(std::cout, file.types(), options.request, *form)
             : Inspect::writeTree(std::cout, file.types(), options.request, options.style());
    reportPartLimit(isWhole, options.request.limit);
    return ExitStatus::DONE;
}

} // namespace

Subcommand addTree(CLI::App& program) {
    const auto options = std::make_shared<TreeOptions>();
    CLI::App* tree = program.add_subcommand("tree", "Draw what a type is made of, with its ranges");
    addFileArguments(*tree, *options);
    addTypeArgument(*tree, options->type)->required();
    addNumber(*tree, "--depth", options->request.depth, "Levels to show below the type (all)");
    addPartLimit(*tree, options->request.limit);
    addRangeLists(*tree, options->request.lists);
    addJsonArguments(*tree, *options);
    addColorArgument(*tree, *options);
    tree->footer(
        "Each array is shown with the ranges that apply to it here, including those of enclosing "
        "members and typedefs. A dimension without any range is shown as 0 downto 0. Below a "
        "dynamic array, a queue or an associative array the ranges are those that the element "
        "type has on its own. \"(seen above)\" marks a class or struct that contains itself, where "
        "it recurs; its parts are not drawn again.\n"
        "\n"
        "Example:\n  rtti tree --depth 2 examples/typefiles/svkinds_slang.typ 33");
    return {tree, [options] { return runTree(*options); }};
}
