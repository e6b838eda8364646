#include "Import/GhdlDumps.h"

#include "Import/GhwFile.h"
#include "Import/GhwTypes.h"
#include "Import/VhdlRecords.h"
#include "Import/VhdlTypes.h"

namespace Import {

struct GhdlDumps::Types {
    VhdlTypes ofWaves;
};

GhdlDumps::GhdlDumps(bool keepAnonymous)
    : m_keepAnonymous(keepAnonymous), m_types(std::make_unique<Types>()) {}

GhdlDumps::~GhdlDumps() = default;

void GhdlDumps::readWave(Input& input) {
    addGhwTypes(readGhw(input), input, m_keepAnonymous, m_types->ofWaves);
}

void GhdlDumps::addTo(TypeTable& table, Notes& notes) {
    addVhdlRecords(m_types->ofWaves, table, notes);
}

} // namespace Import
