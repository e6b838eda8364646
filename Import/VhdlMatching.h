#pragma once

#include "Import/VhdlTypes.h"

namespace Import {

/// Adds the types of listings to those of waves, and makes one of each two that tell of the same
/// type. Waves do not have what no signal uses; listings do not have index types, all digits of
/// reals, and some ranges. The declarations of listings come first. Takes time by the size of the
/// types, times the waves' types of one name.
VhdlTypes joinDumps(VhdlTypes waves, VhdlTypes listings);

} // namespace Import
