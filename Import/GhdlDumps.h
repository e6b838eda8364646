#pragma once

#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TypeTable.h"

#include <memory>

namespace Import {

/// Reads the types of VHDL designs from the dumps of GHDL: waves (GHW, `--wave`) and type listings
/// (`--dump-rti`). Read all dumps first, then add their combined types to a table.
class GhdlDumps {
public:
    GhdlDumps();
    GhdlDumps(const GhdlDumps&) = delete;
    GhdlDumps& operator=(const GhdlDumps&) = delete;
    ~GhdlDumps();

    /// Reads a GHW file in either byte order. Throws ImportError if it is damaged; the object
    /// cannot be used afterwards. Takes time proportional to the size of the file, and memory
    /// proportional to that of its types.
    void readWave(Input& input);

    /// Reads a type listing, and notes lines of unknown kinds. Throws ImportError if it is damaged;
    /// the object cannot be used afterwards. Takes memory proportional to the declarations.
    void readListing(Input& input, Notes& notes);

    /// Adds the types to `table` in the order in which they were found, and notes everything that a
    /// record cannot hold or that is missing from the dumps. Must be the last call, made once.
    void addTo(TypeTable& table, Notes& notes);

private:
    struct Types;

    std::unique_ptr<Types> m_types;
};

} // namespace Import
