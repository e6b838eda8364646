#pragma once

#include "Import/GhdlDumps.h"
#include "Import/ImportOptions.h"
#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TypeTable.h"

#include <string>
#include <vector>

namespace Import {

/// The formats that can be imported.
enum class Format { VERILATOR_TREE, GHW, GHDL_LISTING };

/// The name of a format in options and messages, such as "verilator-tree".
const char* formatName(Format format);

/// All formats, in the order in which they are listed.
const std::vector<Format>& allFormats();

/// Recognises the format of an input by its first bytes, without reading past them. Throws
/// ImportError if the input is empty or its format is unknown.
Format recogniseFormat(Input& input);

/// Makes one table of types from any number of inputs.
class Importer {
public:
    /// `notes` receives what could not be kept, and must outlive the importer.
    Importer(ImportOptions options, Notes& notes);
    Importer(const Importer&) = delete;
    Importer& operator=(const Importer&) = delete;
    ~Importer();

    /// Reads an input to its end, in the format that is recognised or given. Throws ImportError;
    /// the importer cannot be used afterwards.
    /// @{
    void read(Input& input) { read(input, recogniseFormat(input)); }
    void read(Input& input, Format format);
    /// @}

    /// Hands over the types of all inputs, in the order of their ids, for TypeFile::TypeFileWriter.
    /// Each is complete but for links, and exists until the next one is handed over. The same
    /// inputs give the same types. Must be the last call, made once. All notes are given, and each
    /// ImportError is thrown, before the first type is handed over; what `take` throws passes
    /// through.
    void finish(const TypeTable::TakeType& take);

private:
    ImportOptions m_options;
    Notes& m_notes;
    TypeTable m_types;
    GhdlDumps m_ghdl; ///< Those of all inputs: they complete one another.
};

} // namespace Import
