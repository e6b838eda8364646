#pragma once

#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TypeTable.h"

#include <memory>

namespace Import {

/// The types of VHDL designs from what GHDL dumps of them: waves (GHW, `--wave`). First every dump
/// is read, then the table gets the types of all of them together.
class GhdlDumps {
public:
    /// Subtypes without a name that no declaration needs, such as those of signals, are taken as
    /// well if `keepAnonymous` says so.
    explicit GhdlDumps(bool keepAnonymous = false);
    GhdlDumps(const GhdlDumps&) = delete;
    GhdlDumps& operator=(const GhdlDumps&) = delete;
    ~GhdlDumps();

    /// Reads a GHW file, in either byte order. Throws ImportError for a damaged one; the dumps
    /// cannot be used afterwards. Takes time by the size of the file, memory by that of its types.
    void readWave(Input& input);

    /// Reads a type listing. Throws ImportError for a damaged one, and notes lines that it does not
    /// know; otherwise as above, with memory by the declarations.
    void readListing(Input& input, Notes& notes);

    /// Hands the types over, in the order in which they were met, and notes what a record cannot
    /// hold or no dump said. Called once, last.
    void addTo(TypeTable& table, Notes& notes);

private:
    struct Types;

    bool m_keepAnonymous;
    std::unique_ptr<Types> m_types;
};

} // namespace Import
