#pragma once

#include "tests/support/LinkedTypes.h"

#include <random>

namespace RTTITest {

/// A few types of every kind that refer to each other at random, now and then to none. Every cycle
/// leads through a struct or a class, and none through base classes alone.
LinkedTypes randomTypes(std::mt19937& random);

/// The id of one of the types.
unsigned int randomId(const LinkedTypes& types, std::mt19937& random);

/// Up to three ranges, few enough different ones that levels often agree.
Ranges randomRanges(std::mt19937& random);

} // namespace RTTITest
