#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Import {

/// A range as GHDL prints it: numbers, or literals of an enumeration.
struct ListedRange {
    bool isSaid = true; ///< GHDL has no words for some ranges.
    bool isDownto = false;
    std::string left;
    std::string right;
};

/// A type where another one uses it.
struct ListedUse {
    /// GHDL has no name for what a range of reals or of a physical type is of, and says nothing at
    /// all about some types.
    enum class Form : unsigned char { NAMED, REAL, PHYSICAL, UNSAID };

    Form form = Form::NAMED;
    std::string name;
    bool hasRange = false;
    ListedRange range; ///< Of a scalar.

    /// Of an array or record: those of all of its levels, one after the other.
    std::vector<ListedRange> ranges;
    std::size_t dimensions = 0; ///< How many of them are the array's own.
    bool isConstrained = false; ///< Also where no range is left to say.
};

} // namespace Import
