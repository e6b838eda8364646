#include "Inspect/diff/TypeDiff.h"

#include "Inspect/diff/EqualityClasses.h"
#include "Inspect/diff/TypeComparison.h"
#include "Inspect/diff/TypeGraph.h"
#include "Inspect/diff/TypePairing.h"
#include "Inspect/diff/TypesInQuestion.h"

#include <algorithm>

namespace Inspect {

/// What is kept for telling the changes.
class TypeDiff::Comparison {
public:
    Comparison(const TypeTable& a, const TypeTable& b, const TypesInQuestion& question)
        : m_graph(a, b, question.nodes), m_classes(equalityClasses(m_graph)),
          m_pairing(m_graph, m_classes) {}

    const TypeGraph& graph() const { return m_graph; }
    const std::vector<unsigned int>& classes() const { return m_classes; }
    const TypePairing& pairing() const { return m_pairing; }

private:
    TypeGraph m_graph;
    std::vector<unsigned int> m_classes;
    TypePairing m_pairing;
};

TypeDiff::TypeDiff(const TypeTable& a, const TypeTable& b) : m_a(a), m_b(b) {
    const TypesInQuestion question = typesInQuestion(a, b);
    if (question.areNone)
        return;
    auto comparison = std::make_unique<const Comparison>(a, b, question);
    const TypePairing& pairing = comparison->pairing();
    m_removed = pairing.removed();
    for (const unsigned int node : pairing.added())
        m_added.push_back(comparison->graph().idOf(node));
    if (!m_removed.empty() || !pairing.changed().empty())
        m_verdict = DiffVerdict::INCOMPATIBLE;
    else
        m_verdict = m_added.empty() ? DiffVerdict::RENUMBERED : DiffVerdict::COMPATIBLE;
    if (!pairing.changed().empty())
        m_comparison = std::move(comparison);
}

TypeDiff::~TypeDiff() = default;

TypeDiff::Counts TypeDiff::eachChange(const std::function<void(const TypeChange&)>& take,
                                      RangeLists lists) const {
    Counts counts;
    counts.typesOfA = m_a.count;
    counts.typesOfB = m_b.count;
    counts.removed = m_removed.size();
    counts.added = m_added.size();
    if (m_comparison != nullptr) {
        const TypePairing& pairing = m_comparison->pairing();
        const TypeComparison types(m_comparison->graph(), m_comparison->classes(), pairing, lists);
        for (const unsigned int node : pairing.changed()) {
            const std::vector<TypeChange> changes = types.changesOf(node);
            std::for_each(changes.begin(), changes.end(), take);
            ++(changes.empty() ? counts.containing : counts.changed);
        }
    }
    counts.equal = counts.typesOfA - counts.removed - counts.changed - counts.containing;
    return counts;
}

std::string_view verdictText(DiffVerdict verdict) {
    switch (verdict) {
    case DiffVerdict::IDENTICAL: return "identical";
    case DiffVerdict::RENUMBERED: return "renumbered";
    case DiffVerdict::COMPATIBLE: return "compatible";
    case DiffVerdict::INCOMPATIBLE: break;
    }
    return "incompatible";
}

std::string_view ruleText(DiffVerdict verdict) {
    switch (verdict) {
    case DiffVerdict::IDENTICAL: return "every id has the same type in both files";
    case DiffVerdict::RENUMBERED: return "both files have the same types, under other ids";
    case DiffVerdict::COMPATIBLE: return "every type of A has an equal in B, and B has more types";
    case DiffVerdict::INCOMPATIBLE: break;
    }
    return "a type of A was changed or removed: it has no equal in B";
}

} // namespace Inspect
