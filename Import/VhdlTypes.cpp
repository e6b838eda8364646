#include "Import/VhdlTypes.h"

#include <type_traits>
#include <utility>

namespace Import {

namespace {

/// All that makes a type what it is, but its place, as bytes.
class VhdlContent {
public:
    VhdlContent(const VhdlType& type, std::pmr::string& bytes) : m_bytes(bytes) {
        m_bytes.clear();
        append(type.kind);
        append(type.name);
        append(type.of);
        append(type.indexes);
        append(type.parts.size());
        for (const VhdlPart& part : type.parts) {
            append(part.name);
            append(part.value);
            append(part.use);
        }
        append(type.range);
        append(type.realRange.isKnown);
        append(type.realRange.isExact);
        append(type.realRange.isDownto);
        append(type.realRange.left);
        append(type.realRange.right);
        append(type.mayBeReal);
        append(type.mayBePart);
    }

private:
    template <typename Value> std::enable_if_t<std::is_scalar_v<Value>> append(const Value& value) {
        m_bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    void append(const std::string& text) {
        append(text.size());
        m_bytes.append(text);
    }
    void append(const VhdlRange& range) {
        append(range.isOpen);
        append(range.isDownto);
        append(range.left);
        append(range.right);
    }
    template <typename Element> void append(const std::vector<Element>& elements) {
        append(elements.size());
        for (const Element& element : elements)
            append(element);
    }
    void append(const VhdlUse& use) {
        append(use.type);
        append(use.ranges);
        append(use.alternatives);
    }

    std::pmr::string& m_bytes;
};

} // namespace

std::uint32_t VhdlTypes::intern(VhdlType type) {
    VhdlContent(type, m_content);
    const auto [at, isNew] = m_byContent.try_emplace(m_content, size());
    if (isNew)
        m_types.push_back(std::move(type));
    return at->second;
}

std::uint32_t VhdlTypes::add(VhdlType type) {
    m_types.push_back(std::move(type));
    return size() - 1;
}

} // namespace Import
