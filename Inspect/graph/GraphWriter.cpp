#include "Inspect/graph/GraphWriter.h"

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/graph/GraphDrawing.h"
#include "Inspect/words/TypeText.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

/// The types of a graph, by id: all of a table, or those that a root reaches.
class Selection {
public:
    Selection(const TypeTable& types, const GraphRequest& request)
        : m_types(types), m_isWhole(!request.root) {
        if (!m_isWhole)
            collect(*request.root, request.depth);
    }

    bool isWhole() const { return m_isWhole; }

    /// How many ids there are to go through; some of them may have no type.
    std::size_t size() const { return m_isWhole ? m_types.count : m_ids.size(); }
    unsigned int idAt(std::size_t index) const {
        return m_isWhole ? static_cast<unsigned int>(index) : m_ids[index];
    }
    bool has(unsigned int id) const {
        return m_isWhole || std::binary_search(m_ids.begin(), m_ids.end(), id);
    }

private:
    /// Goes out from the root in rings, each one link further than the last.
    void collect(unsigned int root, unsigned int depth) {
        std::unordered_set<unsigned int> seen = {root};
        std::vector<unsigned int> ring = {root};
        m_ids = ring;
        for (unsigned int distance = 0; distance < depth && !ring.empty(); ++distance) {
            ring = ringAround(ring, seen);
            m_ids.insert(m_ids.end(), ring.begin(), ring.end());
        }
        std::sort(m_ids.begin(), m_ids.end());
    }

    std::vector<unsigned int> ringAround(const std::vector<unsigned int>& ring,
                                         std::unordered_set<unsigned int>& seen) const {
        std::vector<unsigned int> next;
        std::vector<TypeLink> links;
        for (const unsigned int id : ring) {
            links.clear();
            if (const RTBaseType* type = m_types.typeOf(id))
                linksOf(*type, links);
            for (const TypeLink& link : links) {
                if (seen.insert(link.typeId).second)
                    next.push_back(link.typeId);
            }
        }
        return next;
    }

    const TypeTable& m_types;
    bool m_isWhole;
    std::vector<unsigned int> m_ids; ///< Ascending; empty for the whole table.
};

/// Gives a drawing its nodes and edges, until the stream that it writes to fails.
class GraphWalk {
public:
    GraphWalk(const TypeTable& types, const Selection& selection, GraphDrawing& drawing,
              const std::ostream& out)
        : m_types(types), m_selection(selection), m_drawing(drawing), m_out(out) {}

    GraphSize draw() {
        drawNodes();
        drawClasses();
        forEachType([this](unsigned int id, const RTBaseType& type) {
            mergeLinks(id, type, false);
            drawEdges();
        });
        m_drawing.end();
        return m_size;
    }

private:
    template <typename Use> void forEachType(Use use) {
        for (std::size_t i = 0; i < m_selection.size() && m_out; ++i) {
            const unsigned int id = m_selection.idAt(i);
            if (const RTBaseType* type = m_types.typeOf(id))
                use(id, *type);
        }
    }

    void drawNodes() {
        std::set<unsigned int> missing;
        for (std::size_t i = 0; i < m_selection.size() && m_out; ++i) {
            const unsigned int id = m_selection.idAt(i);
            if (const RTBaseType* type = m_types.typeOf(id))
                drawNode(id, *type, missing);
            else if (!m_selection.isWhole())
                missing.insert(id);
        }
        for (const unsigned int id : missing)
            m_drawing.node({id, nullptr, "", false});
        m_size.types += static_cast<unsigned int>(missing.size());
    }

    void drawNode(unsigned int id, const RTBaseType& type, std::set<unsigned int>& missing) {
        bool isCut = false;
        linksOf(type, m_links);
        for (const TypeLink& link : m_links) {
            if (!m_selection.has(link.typeId))
                isCut = true;
            else if (m_types.typeOf(link.typeId) == nullptr)
                missing.insert(link.typeId);
        }
        const bool isNamed = isGivenName(type.m_name);
        m_drawing.node({id, &type, isNamed ? "" : shapeOf(m_types, id, type), isCut});
        ++m_size.types;
    }

    void drawClasses() {
        bool areBegun = false;
        forEachType([&](unsigned int id, const RTBaseType& type) {
            if (type.GetClassId() != ClassId::CLASS)
                return;
            if (!areBegun)
                m_drawing.beginClasses();
            areBegun = true;
            m_drawing.classNode(id);
            mergeLinks(id, type, true);
            drawEdges();
        });
        if (areBegun)
            m_drawing.endClasses();
    }

    /// Makes the edges of one type: the one to its base class, or all others.
    void mergeLinks(unsigned int id, const RTBaseType& type, bool isInheritance) {
        m_edges.clear();
        std::map<std::pair<LinkRole, unsigned int>, std::size_t> known;
        linksOf(type, m_links);
        for (const TypeLink& link : m_links) {
            if ((link.role == LinkRole::BASE_CLASS) != isInheritance ||
                !m_selection.has(link.typeId))
                continue;
            const auto [place, isNew] = known.try_emplace({link.role, link.typeId}, m_edges.size());
            if (isNew)
                m_edges.push_back(
                    {id, type.GetClassId(), link.typeId, link.role, isClass(link.typeId), {}, {}});
            addLabel(type, link, m_edges[place->second]);
        }
    }

    bool isClass(unsigned int id) const {
        const RTBaseType* type = m_types.typeOf(id);
        return type != nullptr && type->GetClassId() == ClassId::CLASS;
    }

    static void addLabel(const RTBaseType& type, const TypeLink& link, GraphEdge& edge) {
        if (link.role == LinkRole::INDEX)
            edge.dimensions.push_back(link.position);
        if (link.role != LinkRole::MEMBER)
            return;
        const auto& aggregate = static_cast<const RTAggregateType&>(type);
        const char* const name = aggregate.m_members[link.position]->m_memberName;
        edge.members.emplace_back(name != nullptr ? name : "");
    }

    void drawEdges() {
        for (const GraphEdge& edge : m_edges)
            m_drawing.edge(edge);
        m_size.edges += m_edges.size();
    }

    const TypeTable& m_types;
    const Selection& m_selection;
    GraphDrawing& m_drawing;
    const std::ostream& m_out;
    GraphSize m_size;
    std::vector<TypeLink> m_links;  ///< Of the type in hand.
    std::vector<GraphEdge> m_edges; ///< Of the type in hand.
};

std::unique_ptr<GraphDrawing> makeDrawing(std::ostream& out, GraphForm form) {
    switch (form) {
    case GraphForm::MERMAID: return makeMermaidDrawing(out);
    case GraphForm::JSON: return makeJsonDrawing(out);
    default: return makeDotDrawing(out);
    }
}

} // namespace

GraphSize writeGraph(std::ostream& out, const TypeTable& types, const GraphRequest& request,
                     GraphForm form) {
    const Selection selection(types, request);
    const auto drawing = makeDrawing(out, form);
    return GraphWalk(types, selection, *drawing, out).draw();
}

} // namespace Inspect
