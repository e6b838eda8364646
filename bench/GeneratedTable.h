#pragma once

#include <vector>

namespace Bench {

/// What the types of a table have on average.
struct TableShape {
    double bytes = 0; ///< Of the file, the header and the address table left out.
    double parts = 0; ///< Members and literals.
    double constraints = 0;
};

/// The generated tables' averages, which are those of middling designs.
inline constexpr TableShape EXPECTED_SHAPE{103, 2.6, 0.9};

/// A type file of `typeCount` types, at offset 0 of its storage. The same count gives the same
/// bytes, on every machine.
///
/// The kinds are mixed as they are in `examples/typefiles`. Types come in packages of 100: what a
/// type refers to is in its own package, so that one type never leads to the whole table. A class
/// member may refer to a type with a higher id, every other reference goes to a lower one.
std::vector<char> generatedTable(unsigned int typeCount);

/// Loads a table and takes its averages.
TableShape shapeOf(const std::vector<char>& table);

} // namespace Bench
