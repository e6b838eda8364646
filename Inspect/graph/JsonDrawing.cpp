#include "Inspect/graph/GraphDrawing.h"
#include "Inspect/json/PartJson.h"

namespace Inspect {

namespace {

/// Writes one JSON object, a node or an edge a line.
class JsonDrawing : public GraphDrawing {
public:
    explicit JsonDrawing(std::ostream& out) : m_out(out) {
        openDocument(m_text, "HDL simulator type graph");
        m_text.key("nodes");
        m_text.openList();
    }

    void node(const GraphNode& node) override {
        beginItem();
        typeMembers(m_text, node.id, node.type);
        m_text.member("isCut", node.isCut);
        endItem();
    }

    void beginClasses() override {}
    void classNode(unsigned int) override {}
    void endClasses() override {}

    void edge(const GraphEdge& edge) override {
        endNodes();
        beginItem();
        m_text.member("from", edge.from);
        m_text.member("to", edge.to);
        m_text.member("field", fieldOf(edge.role, edge.fromClass));
        if (!edge.members.empty())
            names(edge.members);
        if (!edge.dimensions.empty())
            m_text.member("dimensions", edge.dimensions);
        endItem();
    }

    void end() override {
        endNodes();
        m_text.endOfLines();
        m_text.closeList();
        m_text.closeObject();
        m_text.endOfLines();
        m_text.writeTo(m_out);
    }

private:
    void beginItem() {
        m_text.newLine();
        m_text.openObject();
    }

    void endItem() {
        m_text.closeObject();
        m_text.writeTo(m_out);
    }

    void names(const std::vector<std::string_view>& members) {
        m_text.key("members");
        m_text.openList();
        for (const std::string_view member : members)
            m_text.name(member);
        m_text.closeList();
    }

    void endNodes() {
        if (m_areNodesWritten)
            return;
        m_areNodesWritten = true;
        m_text.endOfLines();
        m_text.closeList();
        m_text.newLine();
        m_text.key("edges");
        m_text.openList();
    }

    std::ostream& m_out;
    JsonText m_text;
    bool m_areNodesWritten = false;
};

} // namespace

std::unique_ptr<GraphDrawing> makeJsonDrawing(std::ostream& out) {
    return std::make_unique<JsonDrawing>(out);
}

} // namespace Inspect
