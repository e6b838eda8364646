#include "Inspect/diff/TypeGraph.h"

#include "Inspect/diff/ContentKey.h"
#include "TypeFile/KeyNumbers.h"

#include <algorithm>

namespace Inspect {

using namespace RTTI;

TypeGraph::TypeGraph(const TypeTable& a, const TypeTable& b, const std::vector<bool>& isInQuestion)
    : m_a(a), m_b(b), m_nodes(isInQuestion.size()) {
    for (unsigned int node = 0; node < count(); ++node) {
        if (isInQuestion[node])
            m_inQuestion.push_back(node);
    }
    TypeFile::KeyNumbers contents(m_inQuestion.size() / 2);
    TypeFile::KeyNumbers names(m_inQuestion.size() / 2);
    ContentKey key;
    for (const unsigned int node : m_inQuestion) {
        const RTBaseType* type = typeOf(node);
        m_nodes[node] = {contents.of(key.of(type)),
                         names.of(type != nullptr ? textOf(type->m_name) : ""), m_links.size(),
                         static_cast<unsigned int>(key.links().size())};
        m_links.insert(m_links.end(), key.links().begin(), key.links().end());
    }
}

const RTBaseType* TypeGraph::typeOf(unsigned int node) const {
    return tableOf(node).typeOf(idOf(node));
}

unsigned int TypeGraph::link(unsigned int node, unsigned int index) const {
    const unsigned int id = m_links[m_nodes[node].linksBegin + index];
    if (id == TypeFileFormat::NO_TYPE_ID)
        return NO_TYPE;
    if (id >= tableOf(node).count)
        return NOWHERE;
    return isOfA(node) ? id : id + m_a.count;
}

} // namespace Inspect
