#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace Fuzz {

/// A type file taken apart: what mutations work on, so that they reach the bodies of the records
/// instead of breaking table and sizes every time.
struct Parts {
    std::string version; ///< 32 bytes.
    std::vector<std::string> records;
};

/// As much of a type file as can be made out; no records where there is none.
Parts takeApart(const std::uint8_t* data, std::size_t size);

/// A type file of these parts, its sizes, addresses and count right.
std::string putTogether(const Parts& parts);

/// One random change to records: mostly to a field, as its form allows, else to bytes or to whole
/// records. What depends on the change follows it, but for the changes that break just that.
void mutate(Parts& parts, std::mt19937& random);

/// A type file of these parts, at least one record, with one to four changes to them; now and then
/// the frame is changed as well.
std::string vary(Parts parts, std::mt19937& random);

/// Adds the types of another file behind those of this one, with their references.
void append(Parts& parts, Parts others, std::mt19937& random);

/// Changes the header or an address of a file that was put together, so that it does not fit.
void changeFrame(std::string& file, std::mt19937& random);

/// The number of types that a target asks for: what the header says, but no more than there are
/// bytes for.
unsigned int typeCountOf(const void* data, std::size_t size);

} // namespace Fuzz
