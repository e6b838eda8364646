#include "Inspect/graph/GraphDrawing.h"
#include "Inspect/words/TypeKind.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr char BEGINNING[] =
    "// The types of a design, for Graphviz: each with its id, kind and name; dashed where the\n"
    "// types that it refers to are left out.\n"
    "//   thick, hollow triangle at the base class   inheritance\n"
    "//   solid, names beside it                     members\n"
    "//   hollow diamond at the array                elements; dotted: its index types\n"
    "//   dashed                                     typedefs; in words: referenced and base "
    "types\n"
    "digraph types {\n"
    "  graph [rankdir=LR, ranksep=0.7, nodesep=0.2, fontname=\"Helvetica\", fontsize=10];\n"
    "  node [shape=box, style=\"rounded,filled\", fillcolor=\"#FFFFFF\", color=\"#666666\",\n"
    "        fontname=\"Helvetica\", fontsize=10, margin=\"0.1,0.05\"];\n"
    "  edge [color=\"#444444\", fontname=\"Helvetica\", fontsize=9, arrowsize=0.7];\n";

/// Text of an HTML-like label.
std::string htmlText(std::string_view text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
        case '&': html += "&amp;"; break;
        case '<': html += "&lt;"; break;
        case '>': html += "&gt;"; break;
        case '"': html += "&quot;"; break;
        case '\\': html += "\\\\"; break; // Alone it begins an escape sequence of DOT.
        default: html += c;
        }
    }
    return html;
}

const char* fillOf(unsigned int classId) {
    switch (classId) {
    case ClassId::CLASS: return "#E3D9F2";
    case ClassId::RECORD: return "#D6E6F5";
    case ClassId::ARRAY:
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
    case ClassId::ASSOC_ARRAY: return "#DDF0DC";
    case ClassId::SEQ_ENUM:
    case ClassId::DISCRETE_ENUM: return "#FBEFC9";
    case ClassId::ACCESS:
    case ClassId::FILE_TYPE: return "#F8DFD3";
    default: return "#FFFFFF";
    }
}

const char* styleOf(LinkRole role) {
    switch (role) {
    case LinkRole::BASE_CLASS:
        return "dir=back, arrowtail=empty, arrowsize=1, penwidth=1.6, weight=8, "
               "color=\"#6A3FA0\"";
    case LinkRole::ELEMENT: return "dir=both, arrowtail=odiamond";
    case LinkRole::INDEX: return "style=dotted, arrowhead=vee, color=\"#888888\"";
    case LinkRole::MEMBER: return "arrowhead=vee";
    default: return "style=dashed, arrowhead=vee";
    }
}

/// Writes the DOT language.
class DotDrawing : public GraphDrawing {
public:
    explicit DotDrawing(std::ostream& out) : m_out(out) { m_out << BEGINNING; }

    void node(const GraphNode& node) override {
        if (node.type == nullptr) {
            fmt::print(m_out, "  T{0} [label=<{0} <i>builds no type</i>>, style=dotted];\n",
                       node.id);
            return;
        }
        fmt::print(m_out, "  T{0} [label=<{0} <i>{1}</i>", node.id, htmlText(kindOf(*node.type)));
        const std::string name = pictureName(node);
        if (!name.empty())
            fmt::print(m_out, "<br/><b>{}</b>", htmlText(name));
        const std::string detail = pictureDetail(node);
        if (!detail.empty())
            fmt::print(m_out, "<br/>{}", htmlText(detail));
        fmt::print(m_out, ">, fillcolor=\"{}\"{}];\n", fillOf(node.type->GetClassId()),
                   node.isCut ? ", style=\"rounded,filled,dashed\"" : "");
    }

    void beginClasses() override {
        m_out << "  subgraph cluster_classes {\n"
                 "    label=\"classes\"; labeljust=l; color=\"#6A3FA0\"; style=rounded;\n";
    }
    void classNode(unsigned int id) override { fmt::print(m_out, "    T{};\n", id); }
    void endClasses() override { m_out << "  }\n"; }

    void edge(const GraphEdge& edge) override {
        if (edge.role == LinkRole::BASE_CLASS) {
            // Drawn from the base class on, which puts it in front of the classes derived from it.
            fmt::print(m_out, "    T{} -> T{} [{}];\n", edge.to, edge.from, styleOf(edge.role));
            return;
        }
        fmt::print(m_out, "  T{} -> T{} [{}", edge.from, edge.to, styleOf(edge.role));
        if (edge.isToClass) // Inheritance alone ranks the classes.
            m_out << ", constraint=false";
        const std::string label = edgeLabel(edge);
        if (!label.empty())
            fmt::print(m_out, ", label=<{}>", label);
        m_out << "];\n";
    }

    void end() override { m_out << "}\n"; }

private:
    /// One below the other. The dots of an edge to an index type speak for themselves.
    static std::string edgeLabel(const GraphEdge& edge) {
        std::string label;
        if (edge.role == LinkRole::INDEX)
            return label;
        for (const std::string& line : pictureLabels(edge))
            label += (label.empty() ? "" : "<br/>") + htmlText(line);
        return label;
    }

    std::ostream& m_out;
};

} // namespace

std::unique_ptr<GraphDrawing> makeDotDrawing(std::ostream& out) {
    return std::make_unique<DotDrawing>(out);
}

} // namespace Inspect
