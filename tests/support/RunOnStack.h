#pragma once

#include <cstddef>
#include <functional>

namespace RTTITest {

/// Calls `work` in a thread with a stack of `bytes`, and returns when it is done.
void runOnStack(std::size_t bytes, const std::function<void()>& work);

/// The smallest stack that the library is called on. The frames of a build without optimisation, or
/// with sanitizers, are larger; such a build has the stack of a main thread.
std::size_t smallStack();

/// Room for a model that recurs through every link.
inline constexpr std::size_t LARGE_STACK = std::size_t{256} << 20;

} // namespace RTTITest
