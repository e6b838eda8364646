#pragma once

#include <cstddef>
#include <string_view>

namespace Inspect {

/// The names of consecutive numbers, such as the kinds of arrays.
struct NamedValues {
    const char* const* names;
    std::size_t count;
    unsigned int first; ///< The number that the first name stands for.

    /// The name of a number, or null where it has none.
    const char* nameOf(unsigned int value) const;

    /// Whether `name` stands for a number, and which.
    bool find(std::string_view name, unsigned int& value) const;
};

extern const NamedValues valueEncodings;
extern const NamedValues arrayKinds;
extern const NamedValues recordKinds;
extern const NamedValues enumKinds;

} // namespace Inspect
