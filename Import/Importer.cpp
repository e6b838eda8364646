#include "Import/Importer.h"

#include "Import/ImportError.h"
#include "Import/VerilatorTree.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

namespace Import {

namespace {

/// What there is to know of a format.
struct FormatEntry {
    Format format;
    const char* name;
    const char* firstBytes;
};

constexpr std::array FORMATS = {
    FormatEntry{Format::VERILATOR_TREE, "verilator-tree", "Verilator Tree Dump"},
    FormatEntry{Format::GHW, "ghw", "GHDLwave\n"},
    FormatEntry{Format::GHDL_LISTING, "ghdl-listing", "DISP_RTI."},
};

/// How far a format is looked for.
constexpr std::size_t LOOK_AHEAD = 1 << 16;

const FormatEntry& entryOf(Format format) {
    return *std::find_if(FORMATS.begin(), FORMATS.end(),
                         [=](const FormatEntry& entry) { return entry.format == format; });
}

} // namespace

const char* formatName(Format format) { return entryOf(format).name; }

const std::vector<Format>& allFormats() {
    static const std::vector<Format> all = [] {
        std::vector<Format> formats;
        formats.reserve(std::size(FORMATS));
        for (const FormatEntry& entry : FORMATS)
            formats.push_back(entry.format);
        return formats;
    }();
    return all;
}

Format recogniseFormat(Input& input) {
    if (input.peek(1).empty())
        throw ImportError(input.place(), "the file is empty; GHDL leaves such a one where the "
                                         "elaboration has failed");
    for (const FormatEntry& entry : FORMATS) {
        const std::string_view first = entry.firstBytes;
        if (input.peek(first.size()) == first)
            return entry.format;
    }
    // A wave of a design that was not run has no beginning; the text of a design may stand in front
    // of a listing.
    if (input.peek(4) == std::string_view("DIR\0", 4))
        return Format::GHW;
    if (input.peek(LOOK_AHEAD).find("\nDISP_RTI.") != std::string_view::npos)
        return Format::GHDL_LISTING;
    std::string known;
    for (const FormatEntry& entry : FORMATS)
        known += (known.empty() ? "" : ", ") + std::string(entry.name);
    throw ImportError(input.place(), "the format is none of " + known);
}

Importer::Importer(ImportOptions options, Notes& notes)
    : m_options(std::move(options)), m_notes(notes) {}

Importer::~Importer() = default;

void Importer::read(Input& input, Format format) {
    switch (format) {
    case Format::VERILATOR_TREE: readVerilatorTree(input, m_options, m_types, m_notes); break;
    case Format::GHW: m_ghdl.readWave(input); break;
    case Format::GHDL_LISTING: m_ghdl.readListing(input, m_notes); break;
    }
}

void Importer::finish(const TypeTable::TakeType& take) {
    m_ghdl.addTo(m_types, m_notes);
    m_types.finish(m_options.packages, m_notes, take);
}

} // namespace Import
