#include "Inspect/diff/TypeGraph.h"

#include "Inspect/diff/FieldWalk.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace Inspect {

using namespace RTTI;

/// Appends fields to a key. Lists and texts go with their lengths, so that no two types that differ
/// have the same key.
class TypeGraph::ContentKey {
public:
    explicit ContentKey(std::vector<unsigned int>& links) : m_links(links) {}

    /// The key of a type; its references are appended to the links. Valid until the next call.
    std::string_view of(const RTBaseType* type) {
        m_key.clear();
        m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID;
        if (type != nullptr) {
            number(type->GetClassId());
            FieldWalk(*this).of(*type);
        }
        return m_key;
    }
    int svTypeId() const { return m_svTypeId; }

    void value(const char*, Bits value) { number(value.bits); }
    void value(const char*, RawValue value) { text(value.bytes); }
    void value(const char*, const FullConstraints& range) { number(range); }
    void value(const char*, const std::vector<FullConstraints>& ranges) {
        number(ranges.size());
        m_key.append(reinterpret_cast<const char*>(ranges.data()),
                     ranges.size() * sizeof(FullConstraints));
    }
    void value(const char*, SVTypeId value) {
        m_svTypeId = value.id;
        number(std::min(value.id, 0));
    }
    template <typename Number>
    std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>> value(const char*,
                                                                                   Number value) {
        number(value);
    }

    void link(unsigned int typeId) { m_links.push_back(typeId); }
    void part(const char*, std::string_view name) {
        m_key += '\1';
        text(name);
    }

private:
    template <typename Number> void number(const Number& value) {
        static_assert(std::has_unique_object_representations_v<Number> ||
                      std::is_floating_point_v<Number>);
        m_key.append(reinterpret_cast<const char*>(&value), sizeof(value));
    }
    void text(std::string_view text) {
        number(text.size());
        m_key += text;
    }

    std::string m_key;
    std::vector<unsigned int>& m_links;
    int m_svTypeId = TypeFileFormat::NO_SV_TYPE_ID;
};

TypeGraph::TypeGraph(const TypeTable& a, const TypeTable& b) : m_a(a), m_b(b) {
    const std::size_t total = std::size_t{a.count} + b.count;
    m_nodes.reserve(total);
    TypeFile::KeyNumbers contents(std::max(a.count, b.count));
    TypeFile::KeyNumbers names(std::max(a.count, b.count));
    add(a, contents, names);
    add(b, contents, names);
}

void TypeGraph::add(const TypeTable& table, TypeFile::KeyNumbers& contents,
                    TypeFile::KeyNumbers& names) {
    ContentKey key(m_links);
    for (unsigned int id = 0; id < table.count; ++id) {
        const RTBaseType* type = table.typeOf(id);
        const std::size_t linksBegin = m_links.size();
        const unsigned int content = contents.of(key.of(type));
        const unsigned int name = names.of(type != nullptr ? textOf(type->m_name) : "");
        m_nodes.push_back({content, name, key.svTypeId(), linksBegin});
    }
}

const RTBaseType* TypeGraph::typeOf(unsigned int node) const {
    return tableOf(node).typeOf(idOf(node));
}

std::size_t TypeGraph::linksEnd(unsigned int node) const {
    return node + std::size_t{1} < m_nodes.size() ? m_nodes[node + 1].linksBegin : m_links.size();
}

unsigned int TypeGraph::linkCount(unsigned int node) const {
    return static_cast<unsigned int>(linksEnd(node) - m_nodes[node].linksBegin);
}

unsigned int TypeGraph::link(unsigned int node, unsigned int index) const {
    const unsigned int id = m_links[m_nodes[node].linksBegin + index];
    if (id == TypeFileFormat::NO_TYPE_ID)
        return NO_TYPE;
    if (id >= tableOf(node).count)
        return NOWHERE;
    return isOfA(node) ? id : id + m_a.count;
}

bool TypeGraph::isSameRecord(unsigned int a, unsigned int b) const {
    const Node& nodeA = m_nodes[a];
    const Node& nodeB = m_nodes[b];
    const auto links = m_links.begin();
    using Difference = std::vector<unsigned int>::difference_type;
    const auto begin = [](const Node& node) { return static_cast<Difference>(node.linksBegin); };
    return nodeA.content == nodeB.content && nodeA.name == nodeB.name &&
           nodeA.svTypeId == nodeB.svTypeId &&
           std::equal(links + begin(nodeA), links + static_cast<Difference>(linksEnd(a)),
                      links + begin(nodeB));
}

} // namespace Inspect
