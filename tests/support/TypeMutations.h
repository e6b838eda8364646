#pragma once

#include "RTTI/RTType.h"

#include <functional>
#include <string>
#include <vector>

namespace RTTITest {

/// A change of one field of a type that makes another type of it.
struct TypeMutation {
    std::string field; ///< As differences name it.
    std::function<void()> apply;
};

/// Changes of every field of a type and of its first part, each to a value that it has not yet.
/// References come to say "no type", or lead to nowhere if they do so already.
std::vector<TypeMutation> mutationsOf(RTTI::RTBaseType& type);

} // namespace RTTITest
