#include "Graphviz.h"
#include "Inspect/graph/GraphWriter.h"
#include "Inspect/words/TypeText.h"
#include "OpenedFile.h"
#include "OutputFile.h"
#include "Subcommand.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>
#include <memory>
#include <sstream>

using Inspect::GraphForm;

namespace {

enum class Format { DOT, MERMAID, SVG, JSON };

const std::map<std::string, Format> formats = {{"dot", Format::DOT},
                                               {"mermaid", Format::MERMAID},
                                               {"svg", Format::SVG},
                                               {"json", Format::JSON}};

/// `rtti graph`: which types, in what form, and where to.
struct GraphOptions : FileArguments {
    std::string type; ///< Empty for all types.
    unsigned int depth = 0;
    bool hasDepth = false; ///< Else there is no limit.
    std::string format = "dot";
    bool json = false;
    std::string output = STANDARD_STREAM;
};

/// Graphviz lays out this many types within some seconds. Its time grows faster than their number.
constexpr unsigned int QUICK_TYPES = 2000;

/// Mermaid draws this many edges unless its option maxEdges allows for more.
constexpr unsigned long long MERMAID_EDGES = 500;

void warn(const GraphOptions& options, const std::string& text) {
    std::cerr << "rtti: " << Inspect::escaped(options.file) << ": " << text
              << " (fewer with TYPE and --depth)\n";
}

void writeSvg(std::ostream& out, const GraphOptions& options, const Inspect::TypeTable& types,
              const Inspect::GraphRequest& request) {
    std::ostringstream dot;
    const Inspect::GraphSize size = Inspect::writeGraph(dot, types, request, GraphForm::DOT);
    if (size.types > QUICK_TYPES)
        warn(options, std::to_string(size.types) + " types: dot may take minutes to draw them");
    out << svgOf(dot.str());
}

void write(std::ostream& out, const GraphOptions& options, const Inspect::TypeTable& types,
           const Inspect::GraphRequest& request) {
    switch (options.json ? Format::JSON : formats.at(options.format)) {
    case Format::DOT: Inspect::writeGraph(out, types, request, GraphForm::DOT); return;
    case Format::JSON: Inspect::writeGraph(out, types, request, GraphForm::JSON); return;
    case Format::SVG: writeSvg(out, options, types, request); return;
    case Format::MERMAID: break;
    }
    const auto size = Inspect::writeGraph(out, types, request, GraphForm::MERMAID);
    if (size.edges > MERMAID_EDGES)
        warn(options, std::to_string(size.edges) + " edges: Mermaid draws at most " +
                          std::to_string(MERMAID_EDGES) + " unless maxEdges is raised");
}

/// Writes the types of a file as a graph. The exit status is 0. Throws for a wrong call, an
/// unusable file, an output that cannot be written, and where Graphviz is missing or fails.
int runGraph(const GraphOptions& options) {
    const bool isOfAll = options.type.empty();
    if (options.hasDepth && isOfAll)
        throw CLI::ValidationError("--depth counts the links from a type: it needs a TYPE");
    OpenedFile file(options);
    Inspect::GraphRequest request;
    if (!isOfAll)
        request.root = file.idOf("TYPE", options.type);
    if (options.hasDepth)
        request.depth = options.depth;
    OutputFile output(options.output);
    write(output.stream(), options, isOfAll ? file.loadedTypes() : file.types(), request);
    output.commit();
    return ExitStatus::DONE;
}

} // namespace

Subcommand addGraph(CLI::App& program) {
    const auto options = std::make_shared<GraphOptions>();
    CLI::App* graph = program.add_subcommand("graph", "Draw types and their references");
    addFileArguments(*graph, *options);
    addTypeArgument(*graph, options->type)
        ->description("Only the type with this id or name and what can be reached from it");
    const CLI::Option* depth = addNumber(*graph, "--depth", options->depth,
                                         "Only types at most N references away from TYPE");
    CLI::Option* format =
        addChoice(*graph, "--format", options->format, {"dot", "mermaid", "svg", "json"}, "FORM",
                  "Graphviz's language (the default), Mermaid's, a picture that "
                  "Graphviz draws, or JSON");
    graph->add_flag("--json", options->json, "The same as --format json")->excludes(format);
    graph->add_option("-o,--output", options->output, "File to write; - for standard output (-)")
        ->type_name("FILE");
    graph->footer("Example:\n  rtti graph examples/typefiles/svkinds_slang.typ 71 --depth 1 "
                  "--format svg -o classes.svg");
    return {graph, [options, depth] {
                options->hasDepth = depth->count() != 0;
                return runGraph(*options);
            }};
}
