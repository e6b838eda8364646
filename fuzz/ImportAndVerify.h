#pragma once

#include "Import/Input.h"
#include "Import/Notes.h"
#include "Import/TypeTable.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace Fuzz {

/// Reads an input into a table.
using ReadInput =
    std::function<void(Import::Input& input, Import::TypeTable& types, Import::Notes& notes)>;

/// Imports the bytes with `read`, writes what they give and verifies that. Aborts where a type file
/// is unsound; inputs that are refused, and those of which too much would come, are no fault.
/// Always 0, what a target answers.
int importAndVerify(const std::uint8_t* data, std::size_t size, const ReadInput& read);

} // namespace Fuzz
