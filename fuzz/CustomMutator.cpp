// What libFuzzer calls to make a new input from an old one: mostly a change to the records of a
// type file, now and then any change to its bytes.

#include "fuzz/TypeFileMutator.h"

#include <algorithm>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
    std::mt19937 random(seed);
    Fuzz::Parts parts = Fuzz::takeApart(data, size);
    if (parts.records.empty() || random() % 8 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    for (unsigned int changes = 1 + random() % 4; changes != 0; --changes)
        Fuzz::mutate(parts, random);
    const std::string file = Fuzz::putTogether(parts);
    if (file.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(file.begin(), file.end(), data);
    return file.size();
}
