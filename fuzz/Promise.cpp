#include "fuzz/Promise.h"

#include "OVAT/MemoryBlockManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "fuzz/AskEverything.h"
#include "fuzz/MemoryLimit.h"
#include "fuzz/PrintEverything.h"
#include "fuzz/QuickLimits.h"

#include <ctime>
#include <exception>
#include <limits>

namespace Fuzz {

namespace {

constexpr std::size_t NO_LIMIT = std::numeric_limits<std::size_t>::max() / 4;

double millisecondsOfProcessor() {
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

bool isPassed(const std::string& bytes) {
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    return !TypeFile::hasErrors(TypeFile::verify(storage, bytes.size(), 0, quickLimits()));
}

/// Loads, asks and prints. How many types are missing.
unsigned int useAll(const std::string& bytes) {
    const LoadedTypes types(bytes.data(), bytes.size());
    viewAll(types);
    declareAll(types);
    annotateAll(bytes.data(), bytes.size());
    differ(types, types);
    return askEverything(types);
}

} // namespace

PromiseResult tryPromise(const std::string& bytes, const PromiseLimits& limits) {
    PromiseResult result;
    const double begin = millisecondsOfProcessor();
    {
        const MemoryLimit use({NO_LIMIT, NO_LIMIT}); // Only to see what is used.
        try {
            result.isPassed = isPassed(bytes);
            if (useAll(bytes) != 0 && result.isPassed)
                result.broken = "a type is missing";
        } catch (const std::exception& error) {
            result.broken = error.what();
        }
        result.bytes = use.mostInUse();
    }
    result.milliseconds = millisecondsOfProcessor() - begin;
    if (result.broken.empty() && result.milliseconds > limits.milliseconds)
        result.broken = "it takes too long";
    if (result.broken.empty() && result.bytes > limits.bytes)
        result.broken = "it takes too much memory";
    return result;
}

} // namespace Fuzz
