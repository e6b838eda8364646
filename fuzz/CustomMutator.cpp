// What libFuzzer calls to make a new input from one or two old ones: mostly changes to the fields
// and records of a type file, now and then to its header and addresses, or any change to its bytes.
// The same seed makes the same input.

#include "fuzz/TypeFileMutator.h"

#include <algorithm>
#include <utility>

/// Larger files say nothing that two small ones do not, and take their time.
constexpr std::size_t LARGEST_JOINED = 4096;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
    std::mt19937 random(seed);
    Fuzz::Parts parts = Fuzz::takeApart(data, size);
    if (parts.records.empty() || random() % 8 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::string file = Fuzz::vary(std::move(parts), random);
    if (file.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(file.begin(), file.end(), data);
    return file.size();
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* one, std::size_t oneSize,
                                                 const std::uint8_t* other, std::size_t otherSize,
                                                 std::uint8_t* out, std::size_t maxSize,
                                                 unsigned int seed) {
    if (oneSize + otherSize > LARGEST_JOINED)
        return 0;
    std::mt19937 random(seed);
    Fuzz::Parts parts = Fuzz::takeApart(one, oneSize);
    Fuzz::Parts others = Fuzz::takeApart(other, otherSize);
    if (parts.records.empty() || others.records.empty())
        return 0;
    Fuzz::append(parts, std::move(others), random);
    Fuzz::mutate(parts, random);
    const std::string file = Fuzz::putTogether(parts);
    if (file.size() > maxSize)
        return 0;
    std::copy(file.begin(), file.end(), out);
    return file.size();
}
