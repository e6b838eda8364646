#include "Subcommand.h"

#include "Inspect/html/HtmlPage.h"
#include "OpenedFile.h"
#include "OutputFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace {

/// `rtti html`: which file, and where the page goes.
struct HtmlOptions : FileArguments {
    std::string output;
    Inspect::RangeLists lists = Inspect::RangeLists::SHORT;
};

/// Writes the page of a file. The exit status is 0. Throws for a wrong call, an unusable file, and
/// a page that cannot be written.
int runHtml(const HtmlOptions& options) {
    OpenedFile file(options);
    OutputFile page(options.output);
    const Inspect::TypeTable types = file.loadedTypes();
    Progress progress("writing " + options.output, types.count);
    Inspect::writeHtmlPage(page.stream(),
                           {std::filesystem::path(options.file).filename().string(), file.version(),
                            file.storage(), file.storage().size(), options.offset, types,
                            options.lists},
                           [&](unsigned int done) { progress.at(done); });
    page.commit();
    return ExitStatus::DONE;
}

} // namespace

Subcommand addHtml(CLI::App& program) {
    const auto options = std::make_shared<HtmlOptions>();
    CLI::App* html =
        program.add_subcommand("html", "Write a page that shows the types of a type file");
    addFileArguments(*html, *options);
    html->add_option("-o,--output", options->output, "HTML file to write; - for standard output")
        ->required();
    addRangeLists(*html, options->lists);
    html->footer("The page is a single file and needs no network.\n\n"
                 "Example:\n  rtti html examples/typefiles/ibex_slang.typ -o ibex.html");
    return {html, [options] { return runHtml(*options); }};
}
