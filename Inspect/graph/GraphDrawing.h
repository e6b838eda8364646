#pragma once

#include "Inspect/model/TypeReferences.h"

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// A type in a graph. Its texts are raw: whoever draws escapes them.
struct GraphNode {
    unsigned int id;
    const RTTI::RTBaseType* type; ///< Null for an id that is referred to and has no type.
    std::string shape;            ///< Of a type without a name; else empty.
    bool isCut;                   ///< Refers to types that the graph leaves out.
};

/// All references from one type to another in the same role.
struct GraphEdge {
    unsigned int from;
    unsigned int fromClass; ///< The class id of the type that refers.
    unsigned int to;
    LinkRole role;
    bool isToClass;
    std::vector<std::string_view> members; ///< Their names; only where the role is MEMBER.
    std::vector<unsigned int> dimensions;  ///< Only where the role is INDEX.
};

/// A form that a graph is drawn in. First come all nodes; then, if there are classes, the classes
/// between `beginClasses` and `endClasses`, each followed by the edge to its base class; then the
/// other edges.
class GraphDrawing {
public:
    virtual ~GraphDrawing() = default;
    virtual void node(const GraphNode& node) = 0;
    virtual void beginClasses() = 0;
    virtual void classNode(unsigned int id) = 0;
    virtual void endClasses() = 0;
    virtual void edge(const GraphEdge& edge) = 0;

    /// Called once, last.
    virtual void end() = 0;
};

std::unique_ptr<GraphDrawing> makeDotDrawing(std::ostream& out);
std::unique_ptr<GraphDrawing> makeMermaidDrawing(std::ostream& out);
std::unique_ptr<GraphDrawing> makeJsonDrawing(std::ostream& out);

/// What stands in a picture for the name of a node's type: escaped, and shortened so that the
/// picture stays readable. Empty where it has none.
std::string pictureName(const GraphNode& node);

/// The few words below a type's name that tell it from others of its kind: its ranges, or how many
/// members, literals or units it has; the shape where it has no name. Empty where there is nothing
/// to say.
std::string pictureDetail(const GraphNode& node);

/// The lines beside an edge: names of members, of which a picture has room for some, or the role.
std::vector<std::string> pictureLabels(const GraphEdge& edge);

} // namespace Inspect
