#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <memory_resource>
#include <span>
#include <stdexcept>
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

/// A text that a pool has kept, in one word, with a zero byte behind it.
class PoolText {
public:
    /// An empty text.
    PoolText() = default;

    bool empty() const { return m_chars.empty(); }
    const char* zeroTerminated() const { return empty() ? "" : m_chars.begin(); }
    operator std::string_view() const { return {m_chars.begin(), m_chars.size()}; }

    friend bool operator==(const PoolText& a, std::string_view b) {
        return std::string_view(a) == b;
    }
    friend bool operator==(const PoolText& a, const PoolText& b) {
        return a == std::string_view(b);
    }

private:
    friend class Pool;

    explicit PoolText(PoolList<char> chars) : m_chars(chars) {}

    PoolList<char> m_chars;
};

/// Keeps short lists and texts one after the other, and gives their memory back all at once. What
/// it has returned stays where it is, also when the pool is moved.
class Pool {
public:
    template <typename T> PoolList<T> keep(const std::vector<T>& items) {
        return keep(std::span<const T>(items), 0);
    }
    PoolText keep(std::string_view text) {
        return PoolText(keep(std::span<const char>(text), sizeof('\0')));
    }
    template <typename T> const T* keepOne(const T& item) {
        static_assert(std::is_trivially_destructible_v<T>);
        return new (m_parts.front()->allocate(sizeof(T), alignof(T))) T(item);
    }

    /// Takes over what another pool has kept.
    void take(Pool&& other) {
        std::move(other.m_parts.begin(), other.m_parts.end(), std::back_inserter(m_parts));
    }

private:
    /// Zero bytes follow, as many as `rest` says.
    template <typename T> PoolList<T> keep(std::span<const T> items, std::size_t rest) {
        static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);
        if (items.empty())
            return {};
        if (items.size() > std::numeric_limits<std::uint32_t>::max())
            throw std::length_error("a list or a name has more than 4294967295 items");
        constexpr std::size_t ALIGNMENT = std::max(alignof(T), alignof(std::uint32_t));
        const std::size_t size = ALIGNMENT + items.size_bytes() + rest;
        char* const begin =
            static_cast<char*>(m_parts.front()->allocate(size, ALIGNMENT)) + ALIGNMENT;
        new (begin - sizeof(std::uint32_t)) std::uint32_t(static_cast<std::uint32_t>(items.size()));
        T* const copy = reinterpret_cast<T*>(begin);
        std::fill_n(
            reinterpret_cast<char*>(std::uninitialized_copy(items.begin(), items.end(), copy)),
            rest, '\0');
        return PoolList<T>(copy);
    }

    using Part = std::pmr::monotonic_buffer_resource;

    static std::vector<std::unique_ptr<Part>> onePart() {
        std::vector<std::unique_ptr<Part>> parts;
        parts.push_back(std::make_unique<Part>());
        return parts;
    }

    std::vector<std::unique_ptr<Part>> m_parts = onePart(); ///< New items go into the first.
};

} // namespace Import
