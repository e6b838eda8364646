#pragma once

#include "Inspect/diff/TypeChange.h"
#include "Inspect/diff/TypeGraph.h"
#include "Inspect/diff/TypePairing.h"
#include "Inspect/diff/TypeShape.h"

#include <functional>
#include <string>
#include <vector>

namespace Inspect {

/// Says how the types of a pair differ, field by field.
class TypeComparison {
public:
    TypeComparison(const TypeGraph& graph, const std::vector<unsigned int>& classes,
                   const TypePairing& pairing, RangeLists lists)
        : m_graph(graph), m_classes(classes), m_pairing(pairing), m_lists(lists) {}

    /// The changes of a type of A that has a partner. None for one that only refers to types that
    /// were changed.
    std::vector<TypeChange> changesOf(unsigned int node) const;

private:
    class PairComparison;

    std::string pathTo(unsigned int node) const;

    const TypeGraph& m_graph;
    const std::vector<unsigned int>& m_classes;
    const TypePairing& m_pairing;
    const RangeLists m_lists; ///< How the changes have long lists of ranges.
};

} // namespace Inspect
