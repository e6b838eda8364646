#include "Inspect/graph/GraphDrawing.h"
#include "Inspect/json/PartJson.h"

namespace Inspect {

namespace {

/// Writes one JSON object, a node or an edge a line.
class JsonDrawing : public GraphDrawing {
public:
    explicit JsonDrawing(std::ostream& out) : m_out(out) {
        m_out << openedText(jsonHead("HDL simulator type graph")) << ",\"nodes\":[";
    }

    void node(const GraphNode& node) override {
        Json json = typeToJson(node.id, node.type);
        json["isCut"] = node.isCut;
        item(json);
    }

    void beginClasses() override {}
    void classNode(unsigned int) override {}
    void endClasses() override {}

    void edge(const GraphEdge& edge) override {
        endNodes();
        Json json;
        json["from"] = edge.from;
        json["to"] = edge.to;
        json["field"] = fieldOf(edge.role, edge.fromClass);
        for (const std::string_view member : edge.members)
            json["members"].push_back(nameToJson(member));
        for (const unsigned int dimension : edge.dimensions)
            json["dimensions"].push_back(dimension);
        item(json);
    }

    void end() override {
        endNodes();
        m_out << "\n]}\n";
    }

private:
    void item(const Json& json) {
        m_out << (m_isFirst ? "\n" : ",\n") << lineText(json);
        m_isFirst = false;
    }

    void endNodes() {
        if (m_areNodesWritten)
            return;
        m_out << "\n],\n\"edges\":[";
        m_areNodesWritten = m_isFirst = true;
    }

    std::ostream& m_out;
    bool m_isFirst = true;
    bool m_areNodesWritten = false;
};

} // namespace

std::unique_ptr<GraphDrawing> makeJsonDrawing(std::ostream& out) {
    return std::make_unique<JsonDrawing>(out);
}

} // namespace Inspect
