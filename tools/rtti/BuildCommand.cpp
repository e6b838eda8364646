#include "Subcommand.h"

#include "Arguments.h"
#include "InputStorage.h"
#include "InputText.h"
#include "Inspect/json/TypeJsonReader.h"
#include "Terminal.h"
#include "TypeFile/TypeFileWriter.h"
#include "UnusableFile.h"

#include <CLI/CLI.hpp>

#include <cerrno>
#include <iostream>
#include <memory>
#include <system_error>

namespace {

/// `rtti build`: what to make a type file from, and where.
struct BuildOptions {
    std::string file; ///< The text; "-" for standard input.
    std::string output;
    std::string image; ///< A storage file to take the bytes around the type file from, or empty.
    unsigned long long offset = 0;
    bool ndjson = false;
};

/// The bytes of the storage file to standard output.
void writeOut(TypeFile::TypeFileWriter& writer, const BuildOptions& options) {
    std::vector<char> bytes;
    if (!options.image.empty()) {
        InputStorage image(options.image);
        bytes.resize(image.size());
        image.read(0, bytes.data(), static_cast<long long>(bytes.size()));
    }
    writer.finishInto(bytes);
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void write(TypeFile::TypeFileWriter& writer, const BuildOptions& options) {
    if (options.output == STANDARD_STREAM)
        writeOut(writer, options);
    else
        writer.finishFile(options.output, options.image);
}

/// Writes the types of a JSON text as a type file. The exit status is 0. Throws Inspect::JsonError
/// and TypeFile::WriteError for what is wrong with the text, with the place in it; nothing is
/// written then.
int runBuild(const BuildOptions& options) {
    InputText text(options.file);
    TypeFile::TypeFileWriter writer(options.offset);
    Progress progress("types read from " + text.name(), 0);
    unsigned long long typesRead = 0;
    Inspect::TypeJsonReader reader(
        [&](unsigned int id, const RTTI::RTBaseType& type) {
            writer.add(id, type);
            progress.at(++typesRead);
        },
        [&](std::string_view version) { writer.setVersion(version); });
    try {
        if (options.ndjson)
            reader.readLines(text.stream());
        else
            reader.readDocument(text.stream());
        write(writer, options);
    } catch (const TypeFile::WriteError& error) {
        throw UnusableFile(text.name(),
                           reader.placeOf(error.typeId(), error.field()) + ": " + error.reason());
    } catch (const Inspect::JsonError& error) {
        throw UnusableFile(text.name(), error.what());
    } catch (const std::ios_base::failure&) {
        throw std::system_error(EIO, std::generic_category(), options.file);
    }
    return ExitStatus::DONE;
}

} // namespace

Subcommand addBuild(CLI::App& program) {
    const auto options = std::make_shared<BuildOptions>();
    CLI::App* build = program.add_subcommand("build", "Write a type file from its JSON form");
    build
        ->add_option("TYPES", options->file,
                     "JSON text, as rtti dump --json prints it; - for standard input")
        ->required();
    build
        ->add_option("-o,--output", options->output, "Storage file to write; - for standard output")
        ->required();
    addNumber(*build, "--offset", options->offset,
              "Offset of the type file in the output, in bytes (0)");
    build
        ->add_option("--image", options->image,
                     "Storage file to take the bytes around the type file from")
        ->type_name("FILE");
    build->add_flag("--ndjson", options->ndjson, "TYPES has one JSON object on each line");
    build->footer("Example:\n  rtti dump --json examples/typefiles/ibex_slang.typ > types.json\n"
                  "  rtti build types.json -o types.typ");
    return {build, [options] { return runBuild(*options); }};
}
