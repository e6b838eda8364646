#include "TypeFile/StablePartition.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace TypeFile {

namespace {

using Numbers = std::vector<unsigned int>;

/// Where each block's elements begin, and behind them the end of the last, once the elements are
/// sorted by block.
Numbers beginsOf(const Numbers& blockOf) {
    const unsigned int count =
        blockOf.empty() ? 0 : *std::max_element(blockOf.begin(), blockOf.end()) + 1;
    Numbers begins(count + std::size_t{1}, 0);
    for (const unsigned int block : blockOf)
        ++begins[block + std::size_t{1}];
    std::partial_sum(begins.begin(), begins.end(), begins.begin());
    return begins;
}

/// The numbers 0, 1, ... sorted by their block.
Numbers sortedByBlock(const Numbers& blockOf, Numbers begins) {
    Numbers elements(blockOf.size());
    for (unsigned int i = 0; i < blockOf.size(); ++i)
        elements[begins[blockOf[i]]++] = i;
    return elements;
}

/// Blocks that can be split: elements are marked, then each block parts into its marked and its
/// other elements. The smaller half becomes the new block, which bounds the work of all splits.
class Blocks {
public:
    explicit Blocks(const Numbers& blockOf) : m_blockOf(blockOf), m_place(blockOf.size()) {
        const Numbers begins = beginsOf(blockOf);
        m_elements = sortedByBlock(blockOf, begins);
        for (unsigned int i = 0; i < m_elements.size(); ++i)
            m_place[m_elements[i]] = i;
        m_begin.assign(begins.begin(), begins.end() - 1);
        m_end.assign(begins.begin() + 1, begins.end());
        m_marked.assign(m_begin.size(), 0);
    }

    unsigned int count() const { return static_cast<unsigned int>(m_begin.size()); }
    unsigned int begin(unsigned int block) const { return m_begin[block]; }
    unsigned int end(unsigned int block) const { return m_end[block]; }
    unsigned int element(unsigned int place) const { return m_elements[place]; }
    const Numbers& blockOf() const { return m_blockOf; }

    /// Elements that are marked are the first of their block.
    void mark(unsigned int element) {
        const unsigned int block = m_blockOf[element];
        if (m_marked[block]++ == 0)
            m_touched.push_back(block);
        const unsigned int place = m_place[element];
        const unsigned int first = m_begin[block] + m_marked[block] - 1;
        std::swap(m_elements[place], m_elements[first]);
        m_place[m_elements[place]] = place;
        m_place[element] = first;
    }

    void splitByMarks() {
        for (const unsigned int block : m_touched)
            split(block);
        m_touched.clear();
    }

private:
    void split(unsigned int block) {
        const unsigned int middle = m_begin[block] + std::exchange(m_marked[block], 0);
        if (middle == m_end[block])
            return;
        const unsigned int added = count();
        if (middle - m_begin[block] <= m_end[block] - middle) {
            m_begin.push_back(m_begin[block]);
            m_end.push_back(middle);
            m_begin[block] = middle;
        } else {
            m_begin.push_back(middle);
            m_end.push_back(m_end[block]);
            m_end[block] = middle;
        }
        m_marked.push_back(0);
        for (unsigned int place = m_begin[added]; place < m_end[added]; ++place)
            m_blockOf[m_elements[place]] = added;
    }

    Numbers m_elements; ///< Block by block.
    Numbers m_blockOf;
    Numbers m_place; ///< Of each element in `m_elements`.
    Numbers m_begin, m_end, m_marked;
    Numbers m_touched;
};

Numbers labelsOf(const std::vector<LabelledEdge>& edges) {
    Numbers numberOf; // Of each label; labels are small.
    for (const LabelledEdge& edge : edges) {
        if (edge.label >= numberOf.size())
            numberOf.resize(edge.label + std::size_t{1}, 0);
        numberOf[edge.label] = 1;
    }
    std::exclusive_scan(numberOf.begin(), numberOf.end(), numberOf.begin(), 0U);
    Numbers labels(edges.size());
    std::transform(edges.begin(), edges.end(), labels.begin(),
                   [&](const LabelledEdge& edge) { return numberOf[edge.label]; });
    return labels;
}

} // namespace

// Nodes and edges are partitioned in turn: edges by label and the block of their head, nodes by the
// blocks of the edges that leave them.
std::vector<unsigned int> stablePartition(const std::vector<unsigned int>& blockOf,
                                          const std::vector<LabelledEdge>& edges) {
    const Numbers begins = beginsOf(blockOf);
    if (begins.size() == blockOf.size() + 1)
        return blockOf; // Each node is alone in its block already.
    Numbers heads(edges.size() + 1);
    for (std::size_t i = 0; i < edges.size(); ++i)
        heads[i] = edges[i].head;
    // One more, which is no edge, so that the last node has its place among the heads.
    heads.back() = static_cast<unsigned int>(blockOf.size());
    const Numbers incomingBegins = beginsOf(heads);
    const Numbers incoming = sortedByBlock(heads, incomingBegins);

    Blocks nodes(blockOf);
    Blocks bundles(labelsOf(edges));
    const auto markIncoming = [&](unsigned int node) {
        for (unsigned int i = incomingBegins[node]; i < incomingBegins[node + 1]; ++i)
            bundles.mark(incoming[i]);
    };
    unsigned int doneNodes = 0;
    for (unsigned int bundle = 0; bundle < bundles.count(); ++bundle) {
        for (unsigned int i = bundles.begin(bundle); i < bundles.end(bundle); ++i)
            nodes.mark(edges[bundles.element(i)].tail);
        nodes.splitByMarks();
        for (; doneNodes < nodes.count(); ++doneNodes) {
            for (unsigned int i = nodes.begin(doneNodes); i < nodes.end(doneNodes); ++i)
                markIncoming(nodes.element(i));
            bundles.splitByMarks();
        }
    }
    return nodes.blockOf();
}

} // namespace TypeFile
