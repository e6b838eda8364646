#pragma once

#include "Inspect/json/TypeFromJson.h"

#include <cstddef>
#include <string_view>

namespace Inspect {

/// Makes a type of the object at the front of `text` and returns the object's length, if it is
/// written as `TypeJsonWriter` orders and escapes it, with any blanks. Else returns 0, which says
/// nothing about the text: `typeFromJson` takes every form of it, and has the words for what is
/// wrong.
std::size_t typeFromText(std::string_view text, DescribedType& described);

} // namespace Inspect
