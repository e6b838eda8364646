#pragma once

#include <cstring>
#include <string_view>

namespace RTTI {

/// A zero-terminated copy of `name` (array new, exactly its length plus one).
inline char* copyOfName(std::string_view name) {
    char* copy = new char[name.size() + 1];
    if (!name.empty())
        std::memcpy(copy, name.data(), name.size());
    copy[name.size()] = '\0';
    return copy;
}

} // namespace RTTI
