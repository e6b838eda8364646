#include "Inspect/declarations/DeclarationOrder.h"

#include <utility>

namespace Inspect {

DeclarationOrder::DeclarationOrder(const TypeTable& types, const LanguageDeclarations& language,
                                   DeclarationSink& sink)
    : m_language(language), m_sink(sink), m_states(types.count, State::NEW),
      m_isAnnounced(types.count), m_isAwaited(types.count) {}

void DeclarationOrder::add(unsigned int id) {
    if (m_states[id] != State::NEW)
        return;
    enter(id);
    while (!m_visits.empty()) {
        if (m_visits.back().nextNeed < m_needs.size())
            follow(m_visits.back());
        else
            leave();
    }
}

void DeclarationOrder::finish() {
    // Declaring a type may announce more.
    for (std::size_t i = 0; i < m_awaited.size(); ++i)
        add(m_awaited[i]);
    m_awaited.clear();
}

void DeclarationOrder::enter(unsigned int id) {
    m_language.needsOf(id, m_scratch);
    Visit visit = {id, m_needs.size(), m_needs.size(), m_language.obstacleOf(id, m_scratch)};
    m_states[id] = State::ACTIVE;
    if (visit.obstacle.empty() && !m_language.names().isPredefined(id))
        m_needs.insert(m_needs.end(), m_scratch.named.begin(), m_scratch.named.end());
    m_visits.push_back(std::move(visit));
}

void DeclarationOrder::follow(Visit& visit) {
    const TypeNeed need = m_needs[visit.nextNeed];
    if (!need.isForward && m_states[need.typeId] == State::NEW)
        return enter(need.typeId);
    ++visit.nextNeed;
    if (visit.obstacle.empty())
        visit.obstacle = obstacleIn(need);
}

/// What a need that has been followed stands in the way with.
std::string DeclarationOrder::obstacleIn(const TypeNeed& need) const {
    const State state = m_states[need.typeId];
    const bool isUndeclared =
        state == State::OMITTED ||
        (need.isForward && state == State::NEW && !m_language.obstacleOf(need.typeId).empty());
    if (isUndeclared)
        return "type " + std::to_string(need.typeId) + " has no declaration";
    if (state == State::ACTIVE && !need.isForward)
        return "it needs type " + std::to_string(need.typeId) + ", which needs it in turn";
    return {};
}

void DeclarationOrder::leave() {
    Visit visit = std::move(m_visits.back());
    m_visits.pop_back();
    const bool isDeclared = visit.obstacle.empty();
    if (isDeclared) {
        announceNeeds(visit);
        m_sink.declare(visit.id);
    } else {
        m_sink.omit(visit.id, std::move(visit.obstacle));
    }
    m_states[visit.id] = isDeclared ? State::DECLARED : State::OMITTED;
    m_needs.resize(visit.firstNeed);
}

void DeclarationOrder::announceNeeds(Visit& visit) {
    const DeclaredPackages& packages = m_language.names().packages();
    for (std::size_t i = visit.firstNeed; i < m_needs.size(); ++i) {
        const unsigned int id = m_needs[i].typeId;
        if (!m_needs[i].isForward || id == visit.id || m_states[id] == State::DECLARED)
            continue;
        if (!m_isAwaited[id])
            m_awaited.push_back(id);
        m_isAwaited[id] = true;
        if (m_isAnnounced[id] || packages.packageOf(id) != packages.packageOf(visit.id))
            continue;
        m_isAnnounced[id] = true;
        m_sink.announce(id);
    }
}

} // namespace Inspect
