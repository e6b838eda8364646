#include "JsonArguments.h"

#include <CLI/CLI.hpp>

std::optional<Inspect::JsonForm> JsonArguments::jsonForm() const {
    if (json && ndjson)
        throw CLI::ValidationError("--json and --ndjson exclude one another");
    if (json)
        return Inspect::JsonForm::DOCUMENT;
    return ndjson ? std::optional(Inspect::JsonForm::LINES) : std::nullopt;
}

void addJsonArguments(CLI::App& subcommand, JsonArguments& arguments) {
    subcommand.add_flag("--json", arguments.json, "Print a JSON document");
    subcommand.add_flag("--ndjson", arguments.ndjson, "The same with a JSON object a line");
}
