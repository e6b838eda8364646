#include "Subcommand.h"

#include "Inspect/bytes/FileAnnotator.h"
#include "OVAT/FileBlockManager.h"
#include "Terminal.h"
#include "TypeFile/TypeFileFrame.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <optional>

namespace {

/// `rtti annotate`: which bytes of which file, and how to print them.
struct AnnotateOptions {
    std::string file;
    unsigned long long offset = 0;
    std::optional<unsigned int> id;
    bool json = false;
};

/// Prints the bytes of a file with what they mean. The exit status: 0, or 1 if there are errors
/// among what is printed. Throws for a wrong call and for a file that cannot be read.
int runAnnotate(const AnnotateOptions& options) {
    OVAT::FileBlockManager storage(options.file);
    if (options.id) {
        const TypeFile::TypeFileFrame frame(storage, storage.size(), options.offset);
        if (frame.hasHeader() && *options.id >= frame.typeCount())
            throw CLI::ValidationError("ID " + std::to_string(*options.id) + ": the file has " +
                                       std::to_string(frame.typeCount()) + " types");
    }
    Inspect::Annotation annotation;
    annotation.baseOffset = options.offset;
    annotation.typeId = options.id;
    annotation.form = options.json ? Inspect::AnnotationForm::JSON : Inspect::AnnotationForm::TEXT;
    annotation.style = outputStyle();
    std::optional<Progress> progress;
    if (!isOutputOnTerminal()) {
        progress.emplace("annotating " + options.file, storage.size());
        annotation.progress = [&](unsigned long long offset) { progress->at(offset); };
    }
    return Inspect::annotate(std::cout, storage, storage.size(), annotation) ? 1 : 0;
}

} // namespace

Subcommand addAnnotate(CLI::App& program) {
    const auto options = std::make_shared<AnnotateOptions>();
    CLI::App* annotate =
        program.add_subcommand("annotate", "Print the bytes of a type file, field by field");
    annotate->add_option("FILE", options->file, "Storage file")->required();
    annotate->add_option("ID", options->id, "Only the record of this type");
    annotate->add_option("--offset", options->offset, "Where in FILE the type file begins (0)");
    annotate->add_flag("--json", options->json, "Print the fields as JSON");
    annotate->footer(
        "Example:\n  rtti annotate examples/typefiles/ieee_rti.typ 40\n\n"
        "Exit status: 0 no errors, 1 errors among what is printed, 2 the call is wrong "
        "or the file cannot be read.");
    return {annotate, options->file, [options] { return runAnnotate(*options); }};
}
