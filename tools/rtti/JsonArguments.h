#pragma once

#include "Inspect/json/TypeJsonWriter.h"

#include <optional>

namespace CLI {
class App;
}

/// Whether to print JSON, and how it is cut into lines.
struct JsonArguments {
    bool json = false;
    bool ndjson = false;

    /// Nothing for text. Throws CLI::ValidationError where both forms are asked for.
    std::optional<Inspect::JsonForm> jsonForm() const;
};

/// --json and --ndjson.
void addJsonArguments(CLI::App& subcommand, JsonArguments& arguments);
