#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// What the header and the address table of a type file say. Offsets are those of the storage.
struct FileFacts {
    std::string version;                ///< The version text.
    unsigned long long offset = 0;      ///< Of the header.
    unsigned long long tableOffset = 0; ///< Of the address table.
};

/// Gives the bytes of a type's record.
using RecordSizes = std::function<unsigned long long(unsigned int)>;

/// What there is in a table of types.
struct TypeStatistics {
    /// What there is of one kind.
    struct KindCount {
        std::string_view kind;        ///< "builds no type" for ids without a type.
        unsigned int types = 0;       ///< Of the kind.
        unsigned long long bytes = 0; ///< Of their records.
    };

    /// A type, and how much of something it has.
    struct Ranked {
        unsigned int id;           ///< Of the type.
        unsigned long long amount; ///< Bytes, or parts.
    };

    std::vector<KindCount> kinds;        ///< Those with most types first.
    unsigned int types = 0;              ///< Ids of the table.
    unsigned long long bytes = 0;        ///< Of all records.
    unsigned int vhdlTypes = 0;          ///< By their kinds.
    unsigned int systemVerilogTypes = 0; ///< The others that have a type.
    std::vector<unsigned int> nesting;   ///< See `deepestNesting`.
    std::vector<Ranked> largest;         ///< By bytes of the record.
    std::vector<Ranked> longest;         ///< By members, literals or units.
    std::vector<unsigned int> unused;    ///< Types that no other type refers to.
};

/// Counts in one pass over the table and two over its references. `largest` and `longest` have the
/// first `top`. Memory: a few words a type.
TypeStatistics statisticsOf(const TypeTable& types, const RecordSizes& sizes, unsigned int top);

/// Writes the statistics as text: of the unused types, and of the nesting, the first `top`.
void writeStatistics(std::ostream& out, const TypeTable& types, const FileFacts& facts,
                     const TypeStatistics& statistics, unsigned int top, const TextStyle& style);

/// Writes the statistics as one JSON document, with all of the unused types.
void writeStatisticsJson(std::ostream& out, const TypeTable& types, const FileFacts& facts,
                         const TypeStatistics& statistics);

} // namespace Inspect
