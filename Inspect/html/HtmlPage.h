#pragma once

#include "Inspect/model/TypeTable.h"
#include "OVAT/IBlockManager.h"

#include <functional>
#include <ostream>
#include <string>

namespace Inspect {

/// The type file that a page shows.
struct HtmlSource {
    std::string title;                  ///< Any bytes: the name of the file.
    std::string version;                ///< The version text of its header.
    OVAT::IBlockManager& storage;       ///< Where the file lies.
    unsigned long long storageSize = 0; ///< Bytes of the storage.
    unsigned long long baseOffset = 0;  ///< Of the header, in the storage.
    TypeTable types;                    ///< All of them loaded.
};

/// Writes one HTML page that needs nothing else: a list of the types to search and filter, and of
/// each type its links both ways, declaration, encoding, constraints, and the bytes of its record
/// with their fields.
///
/// The page is ASCII; names are escaped, and nothing in them is taken for HTML or script: what the
/// page may do is stated in it, and is to run its own script and style alone. Types are written a
/// thousand at a time, so that memory does not grow with the page; `progress`, if there is one, is
/// told how many are done. Of a type that flattens to more, the first 1000 ranges are in the page,
/// and of a longer record the first MiB. What the storage throws passes through.
void writeHtmlPage(std::ostream& out, const HtmlSource& source,
                   const std::function<void(unsigned int done)>& progress = {});

} // namespace Inspect
