#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TextStyle.h"
#include "OVAT/IBlockManager.h"

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// Facts from the header and the address table of a type file. Offsets are storage offsets.
struct FileFacts {
    std::string version;                ///< The version text.
    unsigned long long offset = 0;      ///< The offset of the header.
    unsigned long long tableOffset = 0; ///< The offset of the address table.
};

/// Returns the size of a type's record in bytes.
using RecordSizes = std::function<unsigned long long(unsigned int)>;

/// Statistics of a table of types.
struct TypeStatistics {
    /// What there is of one kind.
    struct KindCount {
        unsigned int kindCode = 0;    ///< The class id; 0 for ids without a type.
        unsigned int detail = 0;      ///< See `kindDetailOf`.
        std::string_view kind;        ///< In words; "builds no type" for ids without a type.
        unsigned int types = 0;       ///< The number of types of the kind.
        unsigned long long bytes = 0; ///< The bytes of their records.
    };

    /// A type and the amount by which it is ranked.
    struct Ranked {
        unsigned int id;           ///< The id of the type.
        unsigned long long amount; ///< Bytes, or parts.
    };

    std::vector<KindCount> kinds;        ///< Those with the most types first.
    unsigned int types = 0;              ///< The number of ids in the table.
    unsigned long long bytes = 0;        ///< The bytes of all records.
    unsigned int vhdlTypes = 0;          ///< The number of types that belong to VHDL.
    unsigned int systemVerilogTypes = 0; ///< The number of all other types.
    std::vector<unsigned int> nesting;   ///< See `deepestNesting`.
    std::vector<Ranked> largest;         ///< By bytes of the record.
    std::vector<Ranked> longest;         ///< By the number of members, literals or units.
    std::vector<unsigned int> unused;    ///< Types that no other type refers to.
};

/// Counts types. `largest` and `longest` contain the first `top` types. Takes one pass over the
/// table, and memory for a few words for each type and each reference.
TypeStatistics statisticsOf(const TypeTable& types, const RecordSizes& sizes, unsigned int top);

/// The same for all types of the type file whose header is at `baseOffset` in a storage of
/// `storageSize` bytes, without loading any: it reads the records in the order of the storage, in
/// about half the time of a load. For files without errors (see `TypeFile::verify`). Exceptions of
/// the storage pass through.
TypeStatistics statisticsOf(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, unsigned int top);

/// Writes the statistics as text, with the first `top` unused types and the first `top` nested
/// ones.
void writeStatistics(std::ostream& out, const TypeTable& types, const FileFacts& facts,
                     const TypeStatistics& statistics, unsigned int top, const TextStyle& style);

/// Writes the statistics as one JSON document, with all unused types.
void writeStatisticsJson(std::ostream& out, const TypeTable& types, const FileFacts& facts,
                         const TypeStatistics& statistics);

} // namespace Inspect
