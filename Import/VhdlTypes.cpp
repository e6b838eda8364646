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
        number(type.uses.size());
        for (const VhdlUse& each : type.uses)
            use(each);
        number(type.parts.size());
        for (const VhdlPart& part : type.parts) {
            text(part.name);
            number(static_cast<std::uint64_t>(part.value));
        }
        range(type.range);
        const VhdlRealRange* const real = type.realRange;
        if (real == nullptr)
            return;
        flags(real->isExact, real->isDownto, false);
        number(std::bit_cast<std::uint64_t>(real->left));
        number(std::bit_cast<std::uint64_t>(real->right));
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

std::uint32_t VhdlTypes::intern(const VhdlType& type) {
    const unsigned int number = keyNumberOf(type);
    if (number == m_ofKeys.size())
        m_ofKeys.push_back(add(type));
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

void VhdlTypes::declare(std::uint32_t type, std::string_view package) {
    if (m_packages.empty() || m_packages.back() != package)
        m_packages.push_back(m_pool.keep(package));
    m_declarations.push_back({type, static_cast<std::uint32_t>(m_packages.size()) - 1});
}

std::uint32_t VhdlTypes::takeRest(VhdlTypes& others, const std::vector<std::uint32_t>& newIds) {
    const auto firstInput = static_cast<std::uint32_t>(m_inputs.size());
    const auto firstPackage = static_cast<std::uint32_t>(m_packages.size());
    m_pool.take(std::move(others.m_pool));
    m_inputs.insert(m_inputs.end(), others.m_inputs.begin(), others.m_inputs.end());
    m_packages.insert(m_packages.end(), others.m_packages.begin(), others.m_packages.end());
    for (VhdlDeclaration& declaration : others.m_declarations)
        declaration = {newIds[declaration.type], firstPackage + declaration.package};
    m_declarations.insert(m_declarations.begin(), others.m_declarations.begin(),
                          others.m_declarations.end());
    return firstInput;
}

std::uint32_t VhdlTypes::add(const VhdlType& type) {
    m_types.push_back(type);
    return size() - 1;
}

} // namespace Import
