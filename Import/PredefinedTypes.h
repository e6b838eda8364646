#pragma once

#include "RTTI/RTType.h"

#include <functional>
#include <memory>
#include <string>

namespace Import {

/// @name The types that SystemVerilog has by itself
///
/// `word` is a keyword, or "*" for any index of an associative array.
/// @{

/// Whether there is such a type.
bool isPredefined(const std::string& word);

/// Whether a vector of a width of its own stands behind the word, such as int.
bool hasOwnRange(const std::string& word);

/// The width of such a vector.
unsigned int bitsOf(const std::string& word);

/// Whether such a vector has a sign unless it is told otherwise.
bool isSignedByItself(const std::string& word);

/// Whether its bits can be x and z.
bool isFourState(const std::string& word);

/// The id of another predefined type.
using NeedType = std::function<unsigned int(const std::string& word)>;

/// Makes the type; what it refers to comes from `need`.
std::unique_ptr<RTTI::RTBaseType> predefinedType(const std::string& word, const NeedType& need);

/// @}

/// Adds a dimension with its range.
void addDimension(RTTI::RTArrayType& array, int left, int right, unsigned int indexTypeId);

} // namespace Import
