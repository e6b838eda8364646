#pragma once

#include "RTTI/RTType.h"

#include <vector>

/// Queries as the plainest recursion can answer them: what the guarded walks of the library are
/// measured against. They trust that the classes on a path are few, that no struct contains itself,
/// and that the table is not hostile; they leave no marks.
namespace Bench {

/// How a value is encoded.
RTTI::ValueEncoding plainEncodingOf(const RTTI::RTBaseType& type);

/// The ranges that the arrays in and below a type give themselves, one for each dimension. Those of
/// levels around an array are not looked at.
std::size_t plainRangesOf(const RTTI::RTBaseType& type);

} // namespace Bench
