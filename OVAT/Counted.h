#pragma once

#include <string>

namespace OVAT {

/// A number and what it counts: "1 byte", "2 bytes", "2 entries". For nouns that take an s.
inline std::string counted(unsigned long long number, const std::string& noun) {
    if (number == 1)
        return "1 " + noun;
    const bool endsInY = noun.back() == 'y';
    return std::to_string(number) + ' ' +
           (endsInY ? noun.substr(0, noun.size() - 1) + "ies" : noun + 's');
}

} // namespace OVAT
