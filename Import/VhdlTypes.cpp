#include "Import/VhdlTypes.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <tuple>
#include <utility>

namespace Import {

namespace {

std::uint64_t bitsOf(double value) { return std::bit_cast<std::uint64_t>(value); }

/// Bit by bit: 0.0 and -0.0 are two bounds.
bool isSame(const VhdlRealRange& a, const VhdlRealRange& b) {
    return std::tie(a.isKnown, a.isExact, a.isDownto) ==
               std::tie(b.isKnown, b.isExact, b.isDownto) &&
           bitsOf(a.left) == bitsOf(b.left) && bitsOf(a.right) == bitsOf(b.right);
}

/// Whether all that makes a type what it is is the same: all but its place.
bool isSame(const VhdlType& a, const VhdlType& b) {
    const auto contentOf = [](const VhdlType& type) {
        return std::tie(type.kind, type.name, type.of, type.indexes, type.parts, type.range,
                        type.mayBeReal, type.mayBePart);
    };
    return contentOf(a) == contentOf(b) && isSame(a.realRange, b.realRange);
}

/// A number that is the same for types that are.
class VhdlHash {
public:
    std::size_t of(const VhdlType& type) {
        add(static_cast<std::uint64_t>(type.kind));
        add(type.name);
        add(type.of);
        for (const std::uint32_t index : type.indexes)
            add(index);
        for (const VhdlPart& part : type.parts) {
            add(part.name);
            add(static_cast<std::uint64_t>(part.value));
            add(part.use);
        }
        add(type.range);
        add(bitsOf(type.realRange.left));
        add(bitsOf(type.realRange.right));
        return static_cast<std::size_t>(m_hash);
    }

private:
    void add(std::uint64_t value) {
        m_hash = (m_hash ^ value) * 0x9E3779B97F4A7C15;
        m_hash ^= m_hash >> 32;
    }
    void add(const std::string& text) {
        add(static_cast<std::uint64_t>(std::hash<std::string>()(text)));
    }
    void add(const VhdlRange& range) {
        add(static_cast<std::uint64_t>(range.left));
        add(static_cast<std::uint64_t>(range.right));
    }
    void add(const VhdlUse& use) {
        add(use.type);
        for (const VhdlRange& range : use.ranges)
            add(range);
    }

    std::uint64_t m_hash = 0;
};

} // namespace

std::uint32_t VhdlTypes::intern(VhdlType&& type) {
    const std::size_t hash = VhdlHash().of(type);
    const auto [first, last] = m_byHash.equal_range(hash);
    const auto same = std::find_if(
        first, last, [&](const auto& entry) { return isSame(m_types[entry.second], type); });
    if (same != last)
        return same->second;
    m_byHash.emplace(hash, size());
    return add(std::move(type));
}

std::uint32_t VhdlTypes::add(VhdlType&& type) {
    m_types.push_back(std::move(type));
    return size() - 1;
}

} // namespace Import
