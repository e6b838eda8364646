#pragma once

#include "Import/GhdlDumps.h"
#include "Import/ImportOptions.h"
#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TypeTable.h"
#include "RTTI/RTType.h"

#include <memory>
#include <string>
#include <vector>

namespace Import {

/// What a front end can have written.
enum class Format { VERILATOR_TREE, GHW, GHDL_LISTING };

/// The format's word in calls and messages: "verilator-tree".
const char* formatName(Format format);

/// Every format, in the order in which they are listed.
const std::vector<Format>& allFormats();

/// The format of an input, by its first bytes; they are still to be read afterwards. Throws
/// ImportError for an empty input and for one of no known format.
Format recogniseFormat(Input& input);

/// Makes one table of types out of any number of inputs.
class Importer {
public:
    /// `notes` are told what could not be kept, and have to outlive the importer.
    Importer(ImportOptions options, Notes& notes);
    Importer(const Importer&) = delete;
    Importer& operator=(const Importer&) = delete;
    ~Importer();

    /// Takes an input, read to its end, as what `recogniseFormat` says, or as what the caller says.
    /// Throws ImportError; the importer is of no use then.
    /// @{
    void read(Input& input) { read(input, recogniseFormat(input)); }
    void read(Input& input, Format format);
    /// @}

    /// The types of all inputs, in the order of their ids, for TypeFile::TypeFileWriter. The same
    /// inputs give the same types. Called once, last.
    std::vector<std::unique_ptr<RTTI::RTBaseType>> finish();

private:
    ImportOptions m_options;
    Notes& m_notes;
    TypeTable m_types;
    GhdlDumps m_ghdl; ///< Those of all inputs: they complete one another.
};

} // namespace Import
