#include "Inspect/diff/EqualityClasses.h"

#include "TypeFile/KeyNumbers.h"
#include "TypeFile/StablePartition.h"

#include <utility>

namespace Inspect {

namespace {

/// Numbers the classes: from the leaves up where references lead to an end; all types that lead
/// into a cycle at once.
class ClassNumbering {
public:
    explicit ClassNumbering(const TypeGraph& graph)
        : m_graph(graph), m_classes(graph.count()), m_states(graph.count(), NEW),
          m_keys(graph.nodes().size() / 2) {}

    std::vector<unsigned int> classes() {
        for (const unsigned int node : m_graph.nodes()) {
            if (m_states[node] == NEW)
                walkFrom(node);
        }
        numberCircular();
        return std::move(m_classes);
    }

private:
    enum State : unsigned char { NEW, OPEN, GROUNDED, CIRCULAR };

    /// In a key, in the place of a class: a reference to a type that leads into a cycle.
    static constexpr unsigned int TO_CIRCULAR = TypeGraph::NOWHERE - 1;

    struct Visit {
        unsigned int node;
        unsigned int nextLink;
    };

    void walkFrom(unsigned int root) {
        open(root);
        while (!m_visits.empty()) {
            Visit& visit = m_visits.back();
            if (visit.nextLink == m_graph.linkCount(visit.node)) {
                close(visit.node);
                m_visits.pop_back();
                continue;
            }
            const unsigned int target = m_graph.link(visit.node, visit.nextLink++);
            if (target < m_graph.count() && m_states[target] == NEW)
                open(target);
        }
    }

    void open(unsigned int node) {
        m_states[node] = OPEN;
        m_visits.push_back({node, 0});
    }

    /// A node that leads to an open one closes a cycle; one that leads to a circular one is
    /// circular as well. There are no others: of a cycle, the node that is closed first leads to an
    /// open one.
    void close(unsigned int node) {
        bool isGrounded = true;
        m_key.assign({m_graph.content(node), m_graph.name(node)});
        for (unsigned int i = 0; i < m_graph.linkCount(node); ++i) {
            const unsigned int target = m_graph.link(node, i);
            isGrounded = isGrounded && (target >= m_graph.count() || m_states[target] == GROUNDED);
            m_key.push_back(target < m_graph.count() ? m_classes[target] : target);
        }
        m_states[node] = isGrounded ? GROUNDED : CIRCULAR;
        if (isGrounded)
            m_classes[node] = numberOfKey();
        else
            m_circular.push_back(node);
    }

    unsigned int numberOfKey() {
        return m_keys.of({reinterpret_cast<const char*>(m_key.data()), m_key.size() * sizeof(int)});
    }

    /// Types that lead into a cycle never equal those that do not; one reference at least tells so
    /// in their keys. They start out in blocks by all but where the references among them lead.
    void numberCircular() {
        for (unsigned int i = 0; i < m_circular.size(); ++i)
            m_classes[m_circular[i]] = i;
        const unsigned int grounded = m_keys.count();
        std::vector<unsigned int> blocks;
        std::vector<TypeFile::LabelledEdge> edges;
        for (unsigned int i = 0; i < m_circular.size(); ++i) {
            const unsigned int node = m_circular[i];
            m_key.assign({m_graph.content(node), m_graph.name(node)});
            for (unsigned int j = 0; j < m_graph.linkCount(node); ++j) {
                const unsigned int target = m_graph.link(node, j);
                const bool isInside = target < m_graph.count() && m_states[target] == CIRCULAR;
                if (isInside)
                    edges.push_back({i, j, m_classes[target]});
                m_key.push_back(isInside                   ? TO_CIRCULAR
                                : target < m_graph.count() ? m_classes[target]
                                                           : target);
            }
            blocks.push_back(numberOfKey() - grounded);
        }
        const std::vector<unsigned int> stable = TypeFile::stablePartition(blocks, edges);
        for (unsigned int i = 0; i < m_circular.size(); ++i)
            m_classes[m_circular[i]] = grounded + stable[i];
    }

    const TypeGraph& m_graph;
    std::vector<unsigned int> m_classes;
    std::vector<State> m_states;
    TypeFile::KeyNumbers m_keys;
    std::vector<unsigned int> m_key;
    std::vector<Visit> m_visits;
    std::vector<unsigned int> m_circular; ///< Nodes that lead into a cycle.
};

} // namespace

std::vector<unsigned int> equalityClasses(const TypeGraph& graph) {
    return ClassNumbering(graph).classes();
}

} // namespace Inspect
