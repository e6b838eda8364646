#include "Inspect/graph/GraphDrawing.h"
#include "Inspect/json/JsonValues.h"
#include "Inspect/words/TypeKind.h"

namespace Inspect {

namespace {

const char* wordOf(LinkRole role) {
    switch (role) {
    case LinkRole::ALIASED: return "aliased";
    case LinkRole::BASE_TYPE: return "baseType";
    case LinkRole::DESIGNATED: return "designated";
    case LinkRole::FILE_ELEMENT: return "fileElement";
    case LinkRole::ELEMENT: return "element";
    case LinkRole::INDEX: return "index";
    case LinkRole::BASE_CLASS: return "baseClass";
    case LinkRole::MEMBER: break;
    }
    return "member";
}

/// Writes one JSON object, a node or an edge a line.
class JsonDrawing : public GraphDrawing {
public:
    explicit JsonDrawing(std::ostream& out) : m_out(out) { m_out << "{\"nodes\":["; }

    void node(const GraphNode& node) override {
        Json json;
        json["id"] = node.id;
        json["kind"] = JSON_NO_TYPE;
        json["name"] = nullptr;
        if (node.type != nullptr) {
            json["kind"] = kindOf(*node.type);
            if (node.type->m_name != nullptr)
                json["name"] = nameToJson(node.type->m_name);
        }
        json["cut"] = node.isCut;
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
        json["role"] = wordOf(edge.role);
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
        m_out << (m_isFirst ? "\n" : ",\n") << json.dump(-1, ' ', true);
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
