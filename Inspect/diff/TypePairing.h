#pragma once

#include "Inspect/diff/TypeGraph.h"

#include <utility>
#include <vector>

namespace Inspect {

/// What became of the types of A that have no equal in B.
///
/// Each class has as many pairs of equal types as both files have members; the rest is left over.
/// Of these, types are pairs of before and after that have
///
///  - class and name in common that no other type has, those of equal content first;
///  - a name in common that no other type has, whatever their classes;
///  - class and name in common with others, and most of their literals, units or members as well;
///  - everything in common but a name that the other file does not have, unlike any other;
///  - no name, but a class (and content) that no other type without a name has,
///
/// and after each of these steps those that stand in the same place of a pair: the same member of a
/// struct, the elements of an array. What remains was removed or added.
class TypePairing {
public:
    static constexpr unsigned int NONE = 0xFFFFFFFF;

    /// A reference of a type of A.
    struct Place {
        unsigned int node; ///< NONE for no place.
        unsigned int link;
    };

    /// `classes` is what `equalityClasses` gives. Takes time in proportion to the types left over
    /// and their fields, but for sorting.
    TypePairing(const TypeGraph& graph, const std::vector<unsigned int>& classes);

    /// Nodes of A with a partner in B that they do not equal, by id.
    const std::vector<unsigned int>& changed() const { return m_changed; }
    /// Nodes of A and of B, by id.
    const std::vector<unsigned int>& removed() const { return m_removed; }
    const std::vector<unsigned int>& added() const { return m_added; }

    unsigned int partner(unsigned int node) const { return m_partner[node]; }

    /// Where a pair was found by its place, that place.
    Place placeOfPair(unsigned int node) const { return m_places[node]; }

private:
    void countExcess();
    void noteNames();
    void findPairs();
    template <typename MakeKey> void pairUnique(MakeKey makeKey);
    void pairInTurn();
    bool pairRenamed();
    void pairAlike(unsigned int a, unsigned int b);
    void pair(unsigned int a, unsigned int b, Place place);
    void followPlaces();
    void follow(unsigned int a, unsigned int linkA, unsigned int b, unsigned int linkB);
    void listLeftOver();
    void collect();

    bool isLeft(unsigned int node) const;
    bool isNamed(unsigned int node) const;
    unsigned int classId(unsigned int node) const;
    bool haveLikeNames(unsigned int a, unsigned int b) const;
    bool isNameGone(unsigned int node) const;
    bool isRenamed(unsigned int a, unsigned int b) const;
    bool haveLikeParts(unsigned int a, unsigned int b) const;
    unsigned int& excess(unsigned int node) {
        return (m_graph.isOfA(node) ? m_excessA : m_excessB)[m_classes[node]];
    }

    const TypeGraph& m_graph;
    const std::vector<unsigned int>& m_classes;
    std::vector<unsigned int> m_excessA, m_excessB; ///< Of each class: nodes that are left over.
    std::vector<bool> m_namesOfA, m_namesOfB; ///< By the number of the name: whether it is there.
    std::vector<unsigned int> m_partner;
    std::vector<Place> m_places;
    std::size_t m_pairCount = 0;
    std::vector<unsigned int> m_left; ///< That are surely left over, or were at first.
    std::vector<std::pair<unsigned int, unsigned int>> m_toFollow;
    std::vector<unsigned int> m_changed, m_removed, m_added;
};

} // namespace Inspect
