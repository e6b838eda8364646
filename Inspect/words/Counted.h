#pragma once

#include "OVAT/Counted.h"

namespace Inspect {

using OVAT::counted;

} // namespace Inspect
