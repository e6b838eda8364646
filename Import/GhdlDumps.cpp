#include "Import/GhdlDumps.h"

#include "Import/GhdlListing.h"
#include "Import/GhdlTypes.h"
#include "Import/GhwFile.h"
#include "Import/GhwTypes.h"
#include "Import/VhdlMatching.h"
#include "Import/VhdlRecords.h"
#include "Import/VhdlTypes.h"

#include <utility>

namespace Import {

struct GhdlDumps::Types {
    VhdlTypes ofWaves;
    VhdlTypes ofListings;
};

GhdlDumps::GhdlDumps() : m_types(std::make_unique<Types>()) {}

GhdlDumps::~GhdlDumps() = default;

void GhdlDumps::readWave(Input& input) { addGhwTypes(readGhw(input), input, m_types->ofWaves); }

void GhdlDumps::readListing(Input& input, Notes& notes) {
    addGhdlTypes(readGhdlListing(input, notes), input, m_types->ofListings);
}

void GhdlDumps::addTo(TypeTable& table, Notes& notes) {
    addVhdlRecords(joinDumps(std::move(m_types->ofWaves), std::move(m_types->ofListings)), table,
                   notes);
}

} // namespace Import
