#include "Subcommand.h"

#include "Inspect/views/TypeStatistics.h"
#include "OpenedFile.h"
#include "Terminal.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace {

/// `rtti stats`: how long its lists are.
struct StatsOptions : FileArguments, ColorArguments {
    unsigned int top = 10;
    bool json = false;
};

/// Prints what there is in a file. The exit status is 0. Throws for a wrong call or an unusable
/// file.
int runStats(const StatsOptions& options) {
    OpenedFile file(options);
    const Inspect::TypeStatistics statistics = file.statistics(options.top);
    const Inspect::TypeTable types = file.types();
    const Inspect::FileFacts facts{file.version(), options.offset, file.tableOffset()};
    if (options.json)
        Inspect::writeStatisticsJson(std::cout, types, facts, statistics);
    else
        Inspect::writeStatistics(std::cout, types, facts, statistics, options.top, options.style());
    return ExitStatus::DONE;
}

} // namespace

Subcommand addStats(CLI::App& program) {
    const auto options = std::make_shared<StatsOptions>();
    CLI::App* stats = program.add_subcommand("stats", "Count what is in a type file");
    addFileArguments(*stats, *options);
    addNumber(*stats, "--top", options->top, "How many types each list shows (10)");
    stats->add_flag("--json", options->json, "Print a JSON document");
    addColorArgument(*stats, *options);
    stats->footer(
        "Nesting counts types that contain one another: data types of typedefs, bases of "
        "enumerations and classes, elements of arrays of fixed shape, members. The types that a "
        "class handle, an access or file type, a dynamic array, a queue or an associative array "
        "leads to are not contained in it.\n"
        "\n"
        "A type that no other type refers to may well be in use: a type file does not say which "
        "types signals, variables and parameters have.\n"
        "\n"
        "Example:\n  rtti stats --top 3 examples/typefiles/ibex_slang.typ");
    return {stats, [options] { return runStats(*options); }};
}
