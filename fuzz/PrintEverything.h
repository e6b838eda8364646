#pragma once

#include "Inspect/model/TypeTable.h"
#include "fuzz/LoadedTypes.h"

#include <cstddef>

namespace Fuzz {

// Each prints to nowhere, so that what it takes is the printer's own.

/// Every type as a block of lines, as a tree and as a list of leaves, and as JSON.
void viewAll(const LoadedTypes& types);

/// Every type as VHDL and SystemVerilog declare it.
void declareAll(const LoadedTypes& types);

/// The bytes of a type file as text and as JSON, with the shapes of its types, as with `--force`.
void annotateAll(const void* data, std::size_t size);

/// What differs between the types of two files, as text and as JSON. Whether anything does.
bool differ(const LoadedTypes& a, const LoadedTypes& b);

} // namespace Fuzz
