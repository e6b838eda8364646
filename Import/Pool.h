#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Import {

/// Keeps short lists and texts one after the other, and gives their memory back all at once. What
/// it has returned stays where it is, also when the pool is moved.
class Pool {
public:
    template <typename T> std::span<const T> keep(std::span<const T> items) {
        static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
        if (items.empty())
            return {};
        T* const copy = static_cast<T*>(m_parts.front()->allocate(items.size_bytes(), alignof(T)));
        std::uninitialized_copy(items.begin(), items.end(), copy);
        return {copy, items.size()};
    }
    template <typename T> std::span<const T> keep(const std::vector<T>& items) {
        return keep(std::span<const T>(items));
    }
    /// With a zero byte behind it; none of it where there is no text.
    std::string_view keep(std::string_view text) {
        if (text.empty())
            return {};
        char* const copy = static_cast<char*>(m_parts.front()->allocate(text.size() + 1, 1));
        *std::copy(text.begin(), text.end(), copy) = '\0';
        return {copy, text.size()};
    }

    /// Takes over what another pool has kept.
    void take(Pool&& other) {
        std::move(other.m_parts.begin(), other.m_parts.end(), std::back_inserter(m_parts));
    }

private:
    using Part = std::pmr::monotonic_buffer_resource;

    static std::vector<std::unique_ptr<Part>> onePart() {
        std::vector<std::unique_ptr<Part>> parts;
        parts.push_back(std::make_unique<Part>());
        return parts;
    }

    std::vector<std::unique_ptr<Part>> m_parts = onePart(); ///< New items go into the first.
};

} // namespace Import
