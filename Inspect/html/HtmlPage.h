#pragma once

#include "Inspect/model/TypeTable.h"
#include "Inspect/words/TypeText.h"
#include "OVAT/IBlockManager.h"

#include <functional>
#include <ostream>
#include <string>

namespace Inspect {

/// The type file that a page shows.
struct HtmlSource {
    std::string title;                    ///< The name of the file; any bytes.
    std::string version;                  ///< The version text in its header.
    OVAT::IBlockManager& storage;         ///< The storage that contains the file.
    unsigned long long storageSize = 0;   ///< The size of the storage in bytes.
    unsigned long long baseOffset = 0;    ///< Storage offset of the header.
    TypeTable types;                      ///< The types, all of them loaded.
    RangeLists lists = RangeLists::SHORT; ///< How long lists of ranges are shown.
};

/// Writes a self-contained HTML page: a list of the types that can be searched and filtered and,
/// for each type, its references in both directions, declaration, encoding, constraints, and the
/// bytes of its record with their fields.
///
/// The page is ASCII. Names are escaped, and nothing in them is interpreted as HTML or script: a
/// policy in the page allows only its own script and style. Types are written a thousand at a time,
/// so memory use does not grow with the page; `progress`, if given, is called with the number of
/// types done. What a type answers is compressed in the page. Unless lists of ranges are wanted
/// whole, the page contains at most 1000 runs of equal flattened ranges of a type. It contains the
/// first MiB of a record. Exceptions of the storage pass through.
void writeHtmlPage(std::ostream& out, const HtmlSource& source,
                   const std::function<void(unsigned int done)>& progress = {});

} // namespace Inspect
