#include "Subcommand.h"

#include "ExitStatus.h"
#include "FrontEnd.h"
#include "Import/ImportError.h"
#include "Import/Importer.h"
#include "InputStorage.h"
#include "InputText.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"
#include "OutputFile.h"
#include "RTTI/TypeFileFormat.h"
#include "Terminal.h"
#include "TypeFile/TypeFileWriter.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// `rtti import`: what to import, and where to.
struct ImportCall {
    std::vector<std::string> files; ///< Of a run: the arguments of the front end.
    std::string output;
    std::string run;  ///< The front end to start, or empty.
    std::string from; ///< A format, or empty for what the inputs say.
    Import::ImportOptions options;
    bool json = false;
    bool isStrict = false;
};

Import::Format formatOf(const std::string& name) {
    for (const Import::Format format : Import::allFormats()) {
        if (name == Import::formatName(format))
            return format;
    }
    throw CLI::ValidationError("--from " + name + ": no such format");
}

/// The line for what could not be kept.
std::string noteLine(const Import::Place& place, const std::string& text) {
    const std::string where = place.text().empty() ? "rtti" : place.text();
    return Inspect::escaped(where + ": " + text);
}

void readFile(Import::Importer& importer, const std::string& path, const std::string& shownPath,
              const std::string& from) {
    InputText text(path);
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    Progress progress("importing " + shownPath, error ? 0 : size);
    Import::Input input(text.stream(), shownPath, [&](unsigned long long bytes) {
        progress.at(bytes);
        CaughtSignals::check();
    });
    if (from.empty())
        importer.read(input);
    else
        importer.read(input, formatOf(from));
}

void writeJson(std::string_view json, const std::string& path) {
    OutputFile output(path.empty() ? STANDARD_STREAM : path);
    output.stream() << json;
    output.commit();
}

void writeTypes(TypeFile::TypeFileWriter& writer, const ImportCall& call) {
    if (call.output == STANDARD_STREAM) {
        const std::vector<char> bytes = writer.finish();
        std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    } else {
        writer.finishFile(call.output);
    }
}

/// Adds the types of what a front end wrote, or of files that were there, to `writer`, and has
/// `json` write them if they are to become JSON.
void importTypes(const ImportCall& call, const FrontEndRun& run, Import::Notes& notes,
                 TypeFile::TypeFileWriter& writer, Inspect::TypeJsonWriter& json) {
    try {
        Import::Importer importer(call.options, notes);
        for (const std::string& path : run.files) {
            const std::string shown = call.run.empty()
                                          ? InputText::nameOf(path)
                                          : std::filesystem::path(path).filename().string();
            readFile(importer, path, shown, call.from);
        }
        importer.finish([&](const RTTI::RTBaseType& type) {
            const unsigned int id = writer.add(type);
            if (call.json)
                json.type(id, type);
        });
    } catch (const Import::ImportError& error) {
        if (run.complaint.empty())
            throw;
        throw std::runtime_error(run.complaint +
                                 "; what it wrote cannot be imported: " + error.what());
    }
}

/// The exit status is 1 where something could not be kept that had to be.
int runImport(const ImportCall& call) {
    std::optional<CaughtSignals> signals;
    std::optional<TemporaryFolder> folder;
    FrontEndRun run{call.files, ""};
    if (!call.run.empty()) {
        signals.emplace();
        folder.emplace();
        run = runFrontEnd(call.run, call.files, folder->path());
    }
    // Shown at the end: an input that is refused gets the line that says why, and no other.
    std::vector<std::string> noteLines;
    Import::Notes notes([&](const Import::Place& place, const std::string& text) {
        noteLines.push_back(noteLine(place, text));
    });
    TypeFile::TypeFileWriter writer;
    std::ostringstream text;
    Inspect::TypeJsonWriter json(text, Inspect::JsonForm::DOCUMENT,
                                 RTTI::TypeFileFormat::TYPE_FILE_VERSION);
    importTypes(call, run, notes, writer, json);
    CaughtSignals::check();
    if (!run.complaint.empty())
        notes.add(Import::Place(), run.complaint + ", but what it had written was imported");
    if (call.json) {
        json.end();
        writeJson(text.view(), call.output);
    } else {
        writeTypes(writer, call);
    }
    for (const std::string& line : noteLines)
        std::cerr << line << '\n';
    if (notes.count() > 0)
        std::cerr << "rtti: " << Inspect::counted(notes.count(), "thing") << " could not be kept\n";
    return call.isStrict && notes.count() > 0 ? ExitStatus::FAULTY : ExitStatus::DONE;
}

void checkCall(const ImportCall& call) {
    if (call.output.empty() && !call.json)
        throw CLI::RequiredError("--output");
    if (call.files.empty() && call.run.empty())
        throw CLI::RequiredError("FILE");
    if (!call.run.empty() && !call.from.empty())
        throw CLI::ValidationError("--from cannot be combined with --run");
}

} // namespace

Subcommand addImport(CLI::App& program) {
    const auto call = std::make_shared<ImportCall>();
    CLI::App* import =
        program.add_subcommand("import", "Make a type file from the output of a front end");
    import->add_option("FILE", call->files,
                       "Tree dump of Verilator, or wave or type listing of GHDL; - for standard "
                       "input. With --run: the arguments of the front end, after --");
    import->add_option("-o,--output", call->output, "Storage file to write; - for standard output");
    import->add_option("--run", call->run, "Start this front end, and import its output")
        ->check(CLI::IsMember(frontEndNames()));
    std::vector<std::string> formats;
    for (const Import::Format format : Import::allFormats())
        formats.emplace_back(Import::formatName(format));
    import
        ->add_option("--from", call->from,
                     "The format of every FILE (default: recognised by content)")
        ->check(CLI::IsMember(formats));
    import
        ->add_option("--package", call->options.packages,
                     "Import only this package, and the types that it needs; may be repeated")
        ->type_name("NAME")
        ->take_all()
        ->expected(1)
        ->allow_extra_args(false);
    import->add_flag("--keep-anonymous", call->options.keepAnonymous,
                     "Keep the names that Verilator made up for types without one");
    import->add_flag("--json", call->json,
                     "Write the types as JSON, as rtti dump --json prints them");
    import->add_flag("--strict", call->isStrict,
                     "End with exit status 1 if something could not be kept");
    import->footer("Examples:\n  rtti import obj_dir/Vtop_011_width.tree -o top.typ\n"
                   "  rtti import --run verilator -o top.typ -- -f top.f --top-module top");
    return {import, [call] {
                checkCall(*call);
                return runImport(*call);
            }};
}
