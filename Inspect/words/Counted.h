#pragma once

#include <string>

namespace Inspect {

/// A number and what it counts: "1 byte", "2 bytes". For nouns that take an s.
inline std::string counted(unsigned long long number, const std::string& noun) {
    return std::to_string(number) + ' ' + noun + (number == 1 ? "" : "s");
}

} // namespace Inspect
