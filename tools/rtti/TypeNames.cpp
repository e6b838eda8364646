#include "TypeNames.h"

#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeKind.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <optional>

using Inspect::counted;

namespace {

/// So many of the types of one name are listed.
constexpr std::size_t TYPES_LISTED = 20;

/// The number that a text consists of; nothing for a name.
std::optional<unsigned long long> numberOf(const std::string& text) {
    if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    unsigned long long number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc() ? number : ~0ULL;
}

/// "4 (class), 7 (packed struct)".
std::string listOf(const std::vector<unsigned int>& ids, const Inspect::TypeTable& types) {
    std::string text;
    for (std::size_t i = 0; i < std::min(ids.size(), TYPES_LISTED); ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(ids[i]) + " (" +
                std::string(Inspect::kindOf(*types.typeOf(ids[i]))) + ')';
    if (ids.size() > TYPES_LISTED)
        text += " and " + std::to_string(ids.size() - TYPES_LISTED) + " more";
    return text;
}

} // namespace

unsigned int typeIdOf(const std::string& what, const std::string& type,
                      const Inspect::TypeTable& types,
                      const std::function<std::vector<unsigned int>()>& find) {
    if (const auto number = numberOf(type)) {
        if (*number >= types.count)
            throw CLI::ValidationError(what + ' ' + type + ": the file has " +
                                       counted(types.count, "type"));
        return static_cast<unsigned int>(*number);
    }
    const std::vector<unsigned int> ids = find();
    if (ids.empty())
        throw CLI::ValidationError(what + ' ' + type + ": no type has this name");
    if (ids.size() > 1)
        throw CLI::ValidationError(what + ' ' + type + ": " + std::to_string(ids.size()) +
                                   " types have this name; give an id: " + listOf(ids, types));
    return ids.front();
}
