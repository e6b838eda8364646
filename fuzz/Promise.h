#pragma once

#include <cstddef>
#include <string>

namespace Fuzz {

/// What may be taken to verify a file, load it, ask its types everything and print them in each
/// way.
struct PromiseLimits {
    double milliseconds = 1000;                ///< Of the processor.
    std::size_t bytes = std::size_t{64} << 20; ///< In use at one time.
};

/// What a file took, and whether that was what is promised.
struct PromiseResult {
    bool isPassed = false;   ///< Whether the verifier found no error.
    std::string broken;      ///< How the promise is broken; empty if it is kept.
    double milliseconds = 0; ///< Of the processor.
    std::size_t bytes = 0;   ///< The most in use at one time.
};

/// Tries what the verifier promises on the bytes of a file. If it finds no error, every type is
/// there, loaded with the memory that a file of its size may take. Else any type may be missing.
/// Either way all questions and all printers end within the limits, and nothing is thrown.
PromiseResult tryPromise(const std::string& bytes, const PromiseLimits& limits);

} // namespace Fuzz
