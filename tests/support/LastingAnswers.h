#pragma once

#include "RTTI/RTTypeManager.h"

#include <cstddef>
#include <vector>

namespace RTTITest {

using Answers = std::vector<std::size_t>;

/// What a type answers however often, and from however many threads, it is asked.
Answers lastingAnswers(const RTTI::RTBaseType& type);

/// The same of all types of a manager, one after the other.
Answers lastingAnswers(RTTI::RTTypeManager& manager);

/// The encodings of all types of a manager. Asked for the first time they are always the same;
/// later a class may give another answer.
Answers encodings(RTTI::RTTypeManager& manager);

} // namespace RTTITest
