#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace Inspect {

struct JsonValue;
using JsonList = std::vector<JsonValue>;
using JsonObject = std::vector<std::pair<std::string, JsonValue>>; ///< By their keys, in order.

/// A value of a JSON text with all that is in it. To destroy it takes no memory, so it may go while
/// there is none.
struct JsonValue {
    /// A number is unsigned unless it is below zero or has a fraction or an exponent.
    std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string, JsonList,
                 JsonObject>
        data = nullptr;

    /// The value if it is of this sort, else null.
    template <typename Data> const Data* get() const { return std::get_if<Data>(&data); }
    template <typename Data> Data* get() { return std::get_if<Data>(&data); }
};

/// The value of a key, or null.
template <typename Object> auto* memberOf(Object& object, std::string_view key) {
    for (auto& [name, value] : object) {
        if (name == key)
            return &value;
    }
    return static_cast<decltype(&object.front().second)>(nullptr);
}

} // namespace Inspect
