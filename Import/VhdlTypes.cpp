#include "Import/VhdlTypes.h"

#include <bit>
#include <utility>

namespace Import {

namespace {

/// Appends to the key of a type what makes it what it is: all but its place.
class KeyWriter {
public:
    explicit KeyWriter(std::string& key) : m_key(key) {}

    void add(const VhdlType& type) {
        number(static_cast<unsigned>(type.kind) << 2 | unsigned(type.mayBeReal) << 1 |
               unsigned(type.mayBePart));
        text(type.name);
        use(type.of);
        number(type.indexes.size());
        for (const VhdlUse& index : type.indexes)
            use(index);
        number(type.parts.size());
        for (const VhdlPart& part : type.parts) {
            text(part.name);
            number(static_cast<std::uint64_t>(part.value));
            use(part.use);
        }
        range(type.range);
        const VhdlRealRange& real = type.realRange;
        flags(real.isKnown, real.isExact, real.isDownto);
        if (real.isKnown) {
            number(std::bit_cast<std::uint64_t>(real.left));
            number(std::bit_cast<std::uint64_t>(real.right));
        }
    }

private:
    /// Seven bits a byte: most numbers are small.
    void number(std::uint64_t value) {
        for (; value >= 0x80; value >>= 7)
            m_key += static_cast<char>(value | 0x80);
        m_key += static_cast<char>(value);
    }
    void flags(bool a, bool b, bool c) {
        m_key += static_cast<char>(unsigned(a) << 2 | unsigned(b) << 1 | unsigned(c));
    }
    void text(std::string_view text) {
        number(text.size());
        m_key += text;
    }
    void range(const VhdlRange& range) {
        flags(range.isOpen, range.isDownto, false);
        if (range.isOpen)
            return;
        number(static_cast<std::uint64_t>(range.left));
        number(static_cast<std::uint64_t>(range.right));
    }
    void use(const VhdlUse& use) {
        number(use.type);
        number(use.ranges.size());
        for (const VhdlRange& each : use.ranges)
            range(each);
        number(use.alternatives.size());
        for (const std::uint32_t type : use.alternatives)
            number(type);
    }

    std::string& m_key;
};

} // namespace

std::span<const VhdlRange> openRanges(std::size_t count) {
    static const std::vector<VhdlRange> most(MOST_OPEN_RANGES);
    return std::span<const VhdlRange>(most).first(count);
}

bool isPredefined(const VhdlType& type) {
    return (type.kind == VhdlKind::PHYSICAL && type.name == "time" && !type.parts.empty() &&
            type.parts.front().name == "fs") ||
           (type.kind == VhdlKind::INTEGER && type.name == "integer") ||
           (type.kind == VhdlKind::REAL && type.name == "real");
}

std::string labelOf(const VhdlType& type) {
    return type.name.empty() ? "a type without a name" : std::string("type ").append(type.name);
}

unsigned int VhdlTypes::keyNumberOf(const VhdlType& type) {
    m_key.clear();
    KeyWriter(m_key).add(type);
    return m_keys.of(m_key);
}

std::uint32_t VhdlTypes::intern(VhdlType&& type) {
    const unsigned int number = keyNumberOf(type);
    if (number == m_ofKeys.size())
        m_ofKeys.push_back(add(std::move(type)));
    return m_ofKeys[number];
}

void VhdlTypes::internAdded() {
    std::vector<bool> isInterned(size());
    for (const std::uint32_t id : m_ofKeys)
        isInterned[id] = true;
    for (std::uint32_t id = 0; id < size(); ++id) {
        if (!isInterned[id] && keyNumberOf(m_types[id]) == m_ofKeys.size())
            m_ofKeys.push_back(id);
    }
}

std::uint32_t VhdlTypes::add(VhdlType&& type) {
    m_types.push_back(std::move(type));
    return size() - 1;
}

} // namespace Import
