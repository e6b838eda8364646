#pragma once

#include "Inspect/model/TypeTable.h"

#include <limits>
#include <optional>
#include <ostream>

namespace Inspect {

/// The form in which a graph is written.
enum class GraphForm {
    DOT,     ///< The language of Graphviz.
    MERMAID, ///< A class diagram for Mermaid.
    JSON     ///< One object with "nodes" and "edges"; nothing is shortened.
};

/// Which types a graph shows.
struct GraphRequest {
    /// If set, only this type and the types that can be reached from it.
    std::optional<unsigned int> root;

    /// The largest number of references between the root and a type.
    unsigned int depth = std::numeric_limits<unsigned int>::max();
};

/// How much a graph shows.
struct GraphSize {
    unsigned int types = 0;       ///< Nodes, including those without a type.
    unsigned long long edges = 0; ///< Edges, each of which may combine several references.
};

/// Writes types as a graph: one node for each type, then the classes with their inheritance, then
/// the other references. References from one type to another in the same role are combined into one
/// edge. Types and edges are in the order of their ids, so the text is the same in every run; it is
/// ASCII.
///
/// Writing ends early if the stream fails.
///
/// A referenced id without a type becomes a node that says so. Types are requested more than once.
/// Memory use is proportional to the types reached from a root and to the ids without a type;
/// writing the whole table takes no additional memory.
GraphSize writeGraph(std::ostream& out, const TypeTable& types, const GraphRequest& request,
                     GraphForm form);

} // namespace Inspect
