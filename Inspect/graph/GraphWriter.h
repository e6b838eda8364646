#pragma once

#include "Inspect/model/TypeTable.h"

#include <limits>
#include <optional>
#include <ostream>

namespace Inspect {

/// The text that a graph is written as.
enum class GraphForm {
    DOT,     ///< Of Graphviz.
    MERMAID, ///< A class diagram.
    JSON     ///< One object with "nodes" and "edges"; nothing is shortened.
};

/// Which types a graph shows.
struct GraphRequest {
    /// Only this type and what can be reached from it; without it all types.
    std::optional<unsigned int> root;

    /// The links that may lie between the root and a type.
    unsigned int depth = std::numeric_limits<unsigned int>::max();
};

/// How much a graph shows.
struct GraphSize {
    unsigned int types = 0;       ///< Nodes; those without a type count as well.
    unsigned long long edges = 0; ///< Drawn, however many references each stands for.
};

/// Writes types as a graph: a node a type, then the classes with their inheritance, then the other
/// references. References from one type to another in the same role are one edge. Types and edges
/// ascend by id, so the text is the same on every run, and it is ASCII.
///
/// Writing ends early where the stream fails.
///
/// An id that is referred to and has no type becomes a node that says so. Types are asked for more
/// than once. Memory grows with the types that are reached from a root, and with the ids without a
/// type; the whole table takes none.
GraphSize writeGraph(std::ostream& out, const TypeTable& types, const GraphRequest& request,
                     GraphForm form);

} // namespace Inspect
