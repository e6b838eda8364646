#include "Subcommand.h"

#include "Arguments.h"
#include "ExitStatus.h"
#include "InputStorage.h"
#include "Inspect/bytes/FileAnnotator.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/model/NameIndex.h"
#include "RTTI/RTTypeManager.h"
#include "Terminal.h"
#include "TypeFile/TypeFileFrame.h"
#include "TypeNames.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <optional>

namespace {

/// `rtti annotate`: which bytes of which file, and how to print them.
struct AnnotateOptions : FileArguments, ColorArguments {
    std::string type; ///< Empty for the whole file.
    bool json = false;
};

/// The type whose bytes are asked for; none for those of the whole file. An id is found in damaged
/// files, too; a name takes a file that can be loaded.
std::optional<unsigned int> idOf(const AnnotateOptions& options,
                                 const TypeFile::TypeFileFrame& frame,
                                 const Inspect::TypeTable& types) {
    if (options.type.empty() || !frame.hasHeader())
        return std::nullopt;
    return typeIdOf("TYPE", options.type, types,
                    [&] { return Inspect::NameIndex(types).idsOf(options.type); });
}

/// The types of a file, none of which is read before one is asked for. The storage must outlive
/// them.
Inspect::TypeTable typesOf(InputStorage& storage, const TypeFile::TypeFileFrame& frame) {
    const auto manager = std::make_shared<std::optional<RTTI::RTTypeManager>>();
    return {frame.typeCount(), [=, &storage, offset = frame.baseOffset()](unsigned int id) {
                if (!*manager)
                    manager->emplace().setupDeserializer(storage, offset);
                return (*manager)->getRTType(id);
            }};
}

/// Prints the bytes of a file with what they mean. The exit status: 0, or 1 if there are errors
/// among what is printed. Throws for a wrong call and for a file that cannot be read.
int runAnnotate(const AnnotateOptions& options) {
    InputStorage storage(options.file);
    Inspect::Annotation annotation;
    annotation.baseOffset = options.offset;
    const TypeFile::TypeFileFrame frame(storage, storage.size(), options.offset);
    const Inspect::TypeTable types = typesOf(storage, frame);
    annotation.typeId = idOf(options, frame, types);
    annotation.shapeOf = [&types](unsigned int id) {
        return Inspect::shapeBehindKind(types, id, types.typeOf(id));
    };
    annotation.force = options.force;
    annotation.form = options.json ? Inspect::AnnotationForm::JSON : Inspect::AnnotationForm::TEXT;
    annotation.style = options.style();
    std::optional<Progress> progress;
    if (!isOutputOnTerminal()) {
        progress.emplace("annotating " + options.file, storage.size());
        annotation.progress = [&](unsigned long long offset) { progress->at(offset); };
    }
    return Inspect::annotate(std::cout, storage, storage.size(), annotation) ? ExitStatus::FAULTY
                                                                             : ExitStatus::DONE;
}

} // namespace

Subcommand addAnnotate(CLI::App& program) {
    const auto options = std::make_shared<AnnotateOptions>();
    CLI::App* annotate =
        program.add_subcommand("annotate", "Print the bytes of a type file, field by field");
    addFileArguments(*annotate, *options);
    addTypeArgument(*annotate, options->type)
        ->description("Only the record of the type with this id or name");
    annotate->add_flag("--json", options->json, "Print the fields as JSON");
    addColorArgument(*annotate, *options);
    annotate->footer("Example:\n  rtti annotate examples/typefiles/ieee_rti.typ 40");
    return {annotate, [options] { return runAnnotate(*options); }};
}
