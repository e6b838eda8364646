#include "ShowCommand.h"

#include "Inspect/TypeDumper.h"
#include "Inspect/TypeReferences.h"
#include "OpenedFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

using RTTI::RTBaseType;

int runShow(const ShowOptions& options) {
    OpenedFile file(options.file, options.offset, options.force);
    if (options.id >= file.typeCount())
        throw CLI::ValidationError("ID " + std::to_string(options.id) + ": the file has " +
                                   std::to_string(file.typeCount()) + " types");
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
