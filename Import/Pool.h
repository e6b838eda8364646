#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <memory_resource>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Import {

/// A list that a pool has kept, in one word: the number of its items stands in front of them.
template <typename T> class PoolList {
public:
    /// A list of nothing.
    PoolList() = default;

    std::size_t size() const {
        if (m_items == nullptr)
            return 0;
        return *reinterpret_cast<const std::uint32_t*>(reinterpret_cast<const char*>(m_items) -
                                                       sizeof(std::uint32_t));
    }
    bool empty() const { return m_items == nullptr; }
    const T* begin() const { return m_items; }
    const T* end() const { return m_items + size(); }
    const T& operator[](std::size_t at) const { return m_items[at]; }
    const T& front() const { return *m_items; }

private:
    friend class Pool;

    explicit PoolList(const T* items) : m_items(items) {}

    const T* m_items = nullptr;
};

/// Keeps short lists and texts one after the other, and gives their memory back all at once. What
/// it has returned stays where it is, also when the pool is moved.
class Pool {
public:
    template <typename T> PoolList<T> keep(const std::vector<T>& items) {
        static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
        if (items.empty())
            return {};
        constexpr std::size_t ALIGNMENT = std::max(alignof(T), alignof(std::uint32_t));
        const std::size_t size = items.size() * sizeof(T);
        char* const begin =
            static_cast<char*>(m_parts.front()->allocate(ALIGNMENT + size, ALIGNMENT)) + ALIGNMENT;
        new (begin - sizeof(std::uint32_t)) std::uint32_t(static_cast<std::uint32_t>(items.size()));
        T* const copy = reinterpret_cast<T*>(begin);
        std::uninitialized_copy(items.begin(), items.end(), copy);
        return PoolList<T>(copy);
    }
    template <typename T> const T* keepOne(const T& item) {
        static_assert(std::is_trivially_destructible_v<T>);
        return new (m_parts.front()->allocate(sizeof(T), alignof(T))) T(item);
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
