#pragma once

#include "TypeFile/NamedValues.h"

namespace Inspect {

using TypeFile::arrayKinds;
using TypeFile::enumKinds;
using TypeFile::NamedValues;
using TypeFile::recordKinds;
using TypeFile::valueEncodings;

} // namespace Inspect
