#pragma once

#include "Inspect/model/TypeTable.h"

#include <string>
#include <vector>

namespace Inspect {

/// The types of two files as one graph. Its nodes are the types of A by id, then those of B; an id
/// that builds no type is a node without fields. Names and contents are numbered: what is equal
/// has one number in both files. Nodes that are not in question have neither, and no references.
class TypeGraph {
public:
    /// In the place of a node: a reference that says "no type".
    static constexpr unsigned int NO_TYPE = 0xFFFFFFFF;
    /// A reference to an id that the file does not have.
    static constexpr unsigned int NOWHERE = 0xFFFFFFFE;

    /// `isInQuestion` has each node.
    TypeGraph(const TypeTable& a, const TypeTable& b, const std::vector<bool>& isInQuestion);

    /// The nodes in question, in ascending order.
    const std::vector<unsigned int>& nodes() const { return m_inQuestion; }

    /// All nodes are numbered below this.
    unsigned int count() const { return static_cast<unsigned int>(m_nodes.size()); }
    /// Nodes below this are types of A.
    unsigned int countA() const { return m_a.count; }
    bool isOfA(unsigned int node) const { return node < m_a.count; }
    const TypeTable& tableOf(unsigned int node) const { return isOfA(node) ? m_a : m_b; }
    unsigned int idOf(unsigned int node) const { return isOfA(node) ? node : node - m_a.count; }
    /// Null for an id that builds no type.
    const RTTI::RTBaseType* typeOf(unsigned int node) const;

    /// The class and all fields but name, references and SystemVerilog type ids that a compiler
    /// gave away.
    unsigned int content(unsigned int node) const { return m_nodes[node].content; }
    unsigned int name(unsigned int node) const { return m_nodes[node].name; }

    /// References in the order of the fields, those that say "no type" as well. Types of equal
    /// content have equally many.
    unsigned int linkCount(unsigned int node) const { return m_nodes[node].linkCount; }
    /// A node, NO_TYPE or NOWHERE.
    unsigned int link(unsigned int node, unsigned int index) const;

private:
    struct Node {
        unsigned int content = 0;
        unsigned int name = 0;
        std::size_t linksBegin = 0; ///< In `m_links`.
        unsigned int linkCount = 0;
    };

    TypeTable m_a, m_b;
    std::vector<Node> m_nodes;
    std::vector<unsigned int> m_inQuestion;
    std::vector<unsigned int> m_links; ///< Type ids, as the fields have them.
};

} // namespace Inspect
