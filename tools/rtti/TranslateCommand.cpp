#include "Subcommand.h"

#include "FilterScripts.h"
#include "Inspect/translate/PythonModule.h"
#include "Inspect/translate/ValueDecoder.h"
#include "Inspect/translate/ViewerFiles.h"
#include "OpenedFile.h"
#include "OutputFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>

namespace {

/// `rtti translate`: which types of which file, for what, and where to.
struct TranslateOptions : FileArguments {
    std::string type; ///< Of --filter.
    std::string to;
    std::string output;
    bool filter = false;
};

void check(const TranslateOptions& options) {
    if (options.filter) {
        if (options.type.empty())
            throw CLI::ValidationError("--filter needs a TYPE");
        if (!options.to.empty() || !options.output.empty())
            throw CLI::ValidationError("--filter cannot be combined with --to or --output");
        return;
    }
    if (options.to.empty() || options.output.empty())
        throw CLI::ValidationError(options.to.empty() ? "--to or --filter is missing"
                                                      : "--output is missing");
    if (!options.type.empty())
        throw CLI::ValidationError("TYPE goes with --filter; --to translates all types");
}

/// The fields of the values on standard input, a line for each line.
int runFilter(OpenedFile& file, const TranslateOptions& options) {
    const unsigned int id = file.idOf("TYPE", options.type);
    try {
        const Inspect::ValueDecoder decoder(file.types(), id);
        for (std::string line; std::getline(std::cin, line);)
            std::cout << decoder.decode(line) << std::endl; // The viewer waits for it.
    } catch (const Inspect::UndecodableType& error) {
        throw CLI::ValidationError("TYPE: the values of " + options.type +
                                   " cannot be decoded: " + error.what());
    }
    return ExitStatus::DONE;
}

/// Creates the directory if it is missing.
int writeViewerFiles(OpenedFile& file, const TranslateOptions& options) {
    const Inspect::TypeTable types = file.loadedTypes();
    const std::filesystem::path folder = options.output;
    std::filesystem::create_directories(folder);
    unsigned int files = 0;
    const auto sink = [&](const std::string& name, const std::string& text) {
        OutputFile out((folder / name).string());
        out.stream() << text;
        out.commit();
        ++files;
    };
    std::vector<Inspect::FilterType> filtered;
    if (options.to == "gtkwave") {
        Inspect::writeGtkwaveFilters(types, sink);
        filtered = Inspect::filterTypes(types);
        if (options.file == "-")
            std::cerr << "rtti: -: no filter processes are written: they need a file to read\n";
        else
            writeFilterScripts(folder, options, filtered);
    } else {
        Inspect::writeSurferMappings(types, sink);
    }
    if (files == 0 && filtered.empty())
        std::cerr << "rtti: " << options.file << ": there is nothing to translate\n";
    return ExitStatus::DONE;
}

/// Translates the types, or values of one of them. The exit status is 0. Throws for a wrong call,
/// an unusable file, and files that cannot be written.
int runTranslate(const TranslateOptions& options) {
    check(options);
    OpenedFile file(options);
    if (options.filter)
        return runFilter(file, options);
    if (options.to != "python")
        return writeViewerFiles(file, options);
    const Inspect::TypeTable types = file.loadedTypes();
    OutputFile out(options.output);
    Inspect::writePythonModule(out.stream(), types);
    out.commit();
    return ExitStatus::DONE;
}

} // namespace

Subcommand addTranslate(CLI::App& program) {
    const auto options = std::make_shared<TranslateOptions>();
    CLI::App* translate =
        program.add_subcommand("translate", "Write types for waveform viewers and test benches");
    addFileArguments(*translate, *options);
    addTypeArgument(*translate, options->type);
    addChoice(*translate, "--to", options->to, {"gtkwave", "surfer", "python"}, "PROGRAM",
              "What to write: GTKWave's filter files and processes, Surfer's mapping files, or a "
              "Python module");
    translate
        ->add_option("-o,--output", options->output,
                     "Directory for the filter or mapping files, made if it is missing, or Python "
                     "module to write; - for standard output")
        ->type_name("FILE");
    translate->add_flag("--filter", options->filter,
                        "Read values of TYPE, binary or hexadecimal, one on each line, and print "
                        "their fields, as a filter process of GTKWave does");
    translate->footer(
        "A filter or mapping file has the literals of one enumeration; a filter process takes the "
        "values of one type apart. The Python module has an IntEnum for each enumeration, and a "
        "class for each packed struct and union.\n\n"
        "Example:\n"
        "  rtti translate examples/typefiles/ibex_slang.typ --to gtkwave -o filters\n"
        "  rtti translate examples/typefiles/ibex_slang.typ --to python -o ibex_types.py\n"
        "  echo 101001 | rtti translate --filter examples/typefiles/ibex_slang.typ "
        "ibex_pkg::pmp_cfg_t");
    return {translate, [options] { return runTranslate(*options); }};
}
