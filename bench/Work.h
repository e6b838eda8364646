#pragma once

#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"
#include "OVAT/MemoryBlockManager.h"
#include "bench/AllTypes.h"

#include <ostream>
#include <string>

/// Work whose time the benchmarks take and whose instructions are counted.
namespace Bench {

/// The types as a table.
Inspect::TypeTable tableOf(const TypeList& types);

/// Counts what is in a type file, as `rtti stats` does: it is verified, its records are counted,
/// and the types that are listed are loaded. False if the file has errors.
bool countTypes(OVAT::MemoryBlockManager& storage, unsigned int typeCount);

/// Whether two tables differ by this many types that only the second one has.
bool differ(const Inspect::TypeTable& a, const Inspect::TypeTable& b, std::size_t added);

/// The JSON document of all types.
std::string jsonOf(const TypeList& types);

/// The type file of a JSON document: its size in bytes.
std::size_t buildFromJson(const std::string& json);

/// The text of `rtti dump`.
void dump(std::ostream& out, const Inspect::TypeTable& types);

/// The declarations of `rtti dump --format`.
void declare(std::ostream& out, const Inspect::TypeTable& types, Inspect::SourceLanguage language);

/// The ranges of a type, with those of its parts: how many there are.
std::size_t rangesOf(const RTTI::RTBaseType& type);

} // namespace Bench
