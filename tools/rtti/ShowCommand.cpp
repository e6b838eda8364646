#include "Subcommand.h"

#include "Inspect/TypeDumper.h"
#include "Inspect/TypeReferences.h"
#include "OpenedFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <memory>

using RTTI::RTBaseType;

namespace {

/// `rtti show`: which type of which file.
struct ShowOptions : FileArguments {
    unsigned int id = 0;
};

/// Prints a type, the types that it refers to, and a line for each type that refers to it. The exit
/// status is 0. Throws for a wrong call or an unusable file.
int runShow(const ShowOptions& options) {
    OpenedFile file(options);
    file.checkId("ID", options.id);
    const auto typeOf = [&](unsigned int id) { return file.manager().getRTType(id); };
    const RTBaseType* shown = typeOf(options.id);
    if (shown != nullptr)
        Inspect::dumpType(std::cout, options.id, *shown, typeOf);
    else
        std::cout << "type " << options.id << ": builds no type\n\n";

    std::cout << "refers to:\n\n";
    if (shown != nullptr) {
        for (const unsigned int id : Inspect::referencesOf(*shown)) {
            if (const RTBaseType* type = typeOf(id))
                Inspect::dumpType(std::cout, id, *type, typeOf);
            else
                std::cout << "type " << id << ": builds no type\n\n";
        }
    }
    std::cout << "referred to by:\n\n";
    for (unsigned int id = 0; id < file.typeCount() && std::cout; ++id) {
        const RTBaseType* type = typeOf(id);
        if (type == nullptr)
            continue;
        const auto references = Inspect::referencesOf(*type);
        if (std::find(references.begin(), references.end(), options.id) != references.end())
            Inspect::dumpHeading(std::cout, id, *type);
    }
    return 0;
}

} // namespace

Subcommand addShow(CLI::App& program) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* show = program.add_subcommand("show", "Print one type with its neighbours");
    addFileArguments(*show, *options);
    show->add_option("ID", options->id, "The type's id")->required();
    show->footer("Example:\n  rtti show examples/typefiles/ibex_slang.typ 4");
    return {show, options->file, [options] { return runShow(*options); }};
}
