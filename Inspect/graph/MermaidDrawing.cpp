#include "Inspect/graph/GraphDrawing.h"
#include "Inspect/words/TypeKind.h"

#include <fmt/format.h>
#include <fmt/ostream.h>

namespace Inspect {

namespace {

constexpr char BEGINNING[] =
    "%% The types of a design, for Mermaid: each with its kind, id and name.\n"
    "%%   <|--  inheritance       -->  members, with their names\n"
    "%%   o--   elements          ..>  typedefs; in words: index, referenced and base types\n"
    "classDiagram\n"
    "  direction LR\n";

bool isPlain(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view(" _.,$+-:").find(c) != std::string_view::npos;
}

/// Whether Mermaid may see a statement in a text: it drops the last ';' behind a word like "style",
/// a colon and a code, and takes "direction LR" for a statement wherever it stands.
bool looksLikeStatement(std::string_view text) {
    for (const std::string_view word : {"style", "classDef", "direction"}) {
        if (text.find(word) != std::string_view::npos)
            return true;
    }
    return false;
}

/// Text with everything that the grammar, HTML or Markdown would take for more than text as
/// character codes; `separators` are characters that the grammar does so in this place alone.
std::string mermaidText(std::string_view text, std::string_view separators = "") {
    if (looksLikeStatement(text) || text.substr(0, 1) == " ")
        separators = " :";
    std::string result;
    for (const char c : text) {
        if (isPlain(c) && separators.find(c) == std::string_view::npos)
            result += c;
        else
            result += fmt::format("#{};", static_cast<unsigned char>(c));
    }
    return result;
}

const char* arrowOf(LinkRole role) {
    switch (role) {
    case LinkRole::BASE_CLASS: return "<|--";
    case LinkRole::ELEMENT: return "o--";
    case LinkRole::MEMBER: return "-->";
    default: return "..>";
    }
}

/// Writes a class diagram of Mermaid.
class MermaidDrawing : public GraphDrawing {
public:
    explicit MermaidDrawing(std::ostream& out) : m_out(out) { m_out << BEGINNING; }

    void node(const GraphNode& node) override {
        if (node.type == nullptr) {
            fmt::print(m_out, "  class T{0}[\"{0} builds no type\"]\n", node.id);
            return;
        }
        const std::string name = pictureName(node);
        fmt::print(m_out, "  class T{0}[\"{0}{1}{2}\"] {{\n    <<{3}>>\n", node.id,
                   name.empty() ? "" : " ", mermaidText(name), mermaidText(kindOf(*node.type)));
        const std::string detail = pictureDetail(node);
        if (!detail.empty())
            fmt::print(m_out, "    {}\n", mermaidText(detail));
        if (node.isCut)
            m_out << "    ...\n";
        m_out << "  }\n";
    }

    // The arrows of inheritance alone make the hierarchy.
    void beginClasses() override {}
    void classNode(unsigned int) override {}
    void endClasses() override {}

    void edge(const GraphEdge& edge) override {
        const bool isInheritance = edge.role == LinkRole::BASE_CLASS;
        fmt::print(m_out, "  T{} {} T{}", isInheritance ? edge.to : edge.from, arrowOf(edge.role),
                   isInheritance ? edge.from : edge.to);
        std::string label;
        for (const std::string& line : pictureLabels(edge))
            label += (label.empty() ? "" : ", ") + line;
        if (!label.empty())
            fmt::print(m_out, " : {}", mermaidText(label, ":"));
        m_out << '\n';
    }

    void end() override {}

private:
    std::ostream& m_out;
};

} // namespace

std::unique_ptr<GraphDrawing> makeMermaidDrawing(std::ostream& out) {
    return std::make_unique<MermaidDrawing>(out);
}

} // namespace Inspect
