#include "Inspect/diff/TypePairing.h"

#include "Inspect/diff/ListAlignment.h"
#include "Inspect/diff/TypeShape.h"
#include "Inspect/diff/TypeWords.h"
#include "Inspect/words/TypeText.h"
#include "TypeFile/KeyNumbers.h"

#include <algorithm>
#include <map>
#include <optional>

namespace Inspect {

namespace {

/// How often the search for types that were renamed starts again, because those found let others
/// be found.
constexpr int RENAMING_ROUNDS = 8;

using Key = std::vector<unsigned int>;

std::string_view bytesOf(const Key& key) {
    return {reinterpret_cast<const char*>(key.data()), key.size() * sizeof(unsigned int)};
}

} // namespace

TypePairing::TypePairing(const TypeGraph& graph, const std::vector<unsigned int>& classes)
    : m_graph(graph), m_classes(classes), m_partner(graph.count(), NONE),
      m_places(graph.count(), {NONE, 0}) {
    countExcess();
    noteNames();
    findPairs();
    collect();
}

void TypePairing::countExcess() {
    const unsigned int classCount =
        m_classes.empty() ? 0 : *std::max_element(m_classes.begin(), m_classes.end()) + 1;
    m_excessA.resize(classCount);
    m_excessB.resize(classCount);
    for (const unsigned int node : m_graph.nodes())
        ++excess(node);
    for (const unsigned int node : m_graph.nodes()) {
        if (m_excessA[m_classes[node]] == 0 || m_excessB[m_classes[node]] == 0)
            m_left.push_back(node);
    }
    for (unsigned int i = 0; i < classCount; ++i) {
        const unsigned int equal = std::min(m_excessA[i], m_excessB[i]);
        m_excessA[i] -= equal;
        m_excessB[i] -= equal;
    }
}

void TypePairing::noteNames() {
    for (const unsigned int node : m_graph.nodes()) {
        const std::size_t name = m_graph.name(node);
        std::vector<bool>& names = m_graph.isOfA(node) ? m_namesOfA : m_namesOfB;
        names.resize(std::max(names.size(), name + 1));
        names[name] = true;
    }
}

void TypePairing::findPairs() {
    const auto classAndName = [this](unsigned int node) {
        return Key{classId(node), m_graph.name(node)};
    };
    const auto withContent = [this](unsigned int node) {
        return Key{classId(node), m_graph.name(node), m_graph.content(node)};
    };
    const auto nameAlone = [this](unsigned int node) { return Key{m_graph.name(node)}; };
    const auto where = [this](bool hasName, auto makeKey) {
        return [this, hasName, makeKey](unsigned int node) {
            return isNamed(node) == hasName ? std::optional<Key>(makeKey(node)) : std::nullopt;
        };
    };
    pairUnique(where(true, withContent));
    pairUnique(where(true, classAndName));
    pairUnique(where(true, nameAlone));
    listLeftOver();
    pairInTurn();
    for (int i = 0; i < RENAMING_ROUNDS && pairRenamed(); ++i) {
    }
    pairUnique(where(false, withContent));
    pairUnique(where(false, classAndName));
}

unsigned int TypePairing::classId(unsigned int node) const {
    const RTTI::RTBaseType* type = m_graph.typeOf(node);
    return type != nullptr ? type->GetClassId() : 0;
}

bool TypePairing::isNamed(unsigned int node) const {
    const RTTI::RTBaseType* type = m_graph.typeOf(node);
    return type != nullptr && isGivenName(type->m_name);
}

bool TypePairing::isLeft(unsigned int node) const {
    return m_partner[node] == NONE &&
           (m_graph.isOfA(node) ? m_excessA : m_excessB)[m_classes[node]] != 0;
}

/// Pairs the nodes left over that have a key in common which no other has.
template <typename MakeKey> void TypePairing::pairUnique(MakeKey makeKey) {
    struct Holders {
        unsigned int countA = 0, countB = 0;
        unsigned int a = NONE, b = NONE;
    };
    TypeFile::KeyNumbers keys(m_left.size());
    std::vector<Holders> holders;
    for (const unsigned int node : m_left) {
        const std::optional<Key> key = isLeft(node) ? makeKey(node) : std::nullopt;
        if (!key)
            continue;
        const unsigned int number = keys.of(bytesOf(*key));
        if (number == holders.size())
            holders.emplace_back();
        const bool isOfA = m_graph.isOfA(node);
        ++(isOfA ? holders[number].countA : holders[number].countB);
        (isOfA ? holders[number].a : holders[number].b) = node;
    }
    for (const Holders& one : holders) {
        if (one.countA == 1 && one.countB == 1)
            pairAlike(one.a, one.b);
    }
}

void TypePairing::pairAlike(unsigned int a, unsigned int b) {
    if (!isLeft(a) || !isLeft(b))
        return;
    pair(a, b, {NONE, 0});
    followPlaces();
}

/// Pairs what has class and name in common with others: what has the same parts first, then in the
/// order of the ids.
void TypePairing::pairInTurn() {
    TypeFile::KeyNumbers names(m_left.size());
    const auto partNames = [&](unsigned int node) {
        std::string text;
        for (const std::string_view name : TypeShape(*m_graph.typeOf(node)).partNames())
            text.append(name).push_back('\0');
        return names.of(text);
    };
    pairUnique([&](unsigned int node) {
        return isNamed(node)
                   ? std::optional<Key>({classId(node), m_graph.name(node), partNames(node)})
                   : std::nullopt;
    });
    std::map<std::pair<unsigned int, unsigned int>, std::vector<unsigned int>> groups;
    for (const unsigned int node : m_left) {
        if (m_graph.isOfA(node) && isLeft(node) && isNamed(node))
            groups[{classId(node), m_graph.name(node)}].push_back(node);
    }
    for (auto& [key, group] : groups)
        std::reverse(group.begin(), group.end()); // So that the first is at the end.
    for (const unsigned int node : m_left) {
        if (m_graph.isOfA(node) || !isLeft(node) || !isNamed(node))
            continue;
        const auto group = groups.find({classId(node), m_graph.name(node)});
        while (group != groups.end() && !group->second.empty() && !isLeft(group->second.back()))
            group->second.pop_back();
        if (group == groups.end() || group->second.empty())
            continue;
        const unsigned int a = group->second.back();
        group->second.pop_back();
        if (haveLikeParts(a, node))
            pairAlike(a, node);
    }
}

/// Pairs what has everything in common but the name. Whether there was any.
bool TypePairing::pairRenamed() {
    enum Token : unsigned int { ITSELF, EQUAL, PARTNER, NO_NODE };
    const std::size_t pairsBefore = m_pairCount;
    pairUnique([&](unsigned int node) -> std::optional<Key> {
        if (!isNameGone(node))
            return std::nullopt;
        Key key{m_graph.content(node)};
        for (unsigned int i = 0; i < m_graph.linkCount(node); ++i) {
            const unsigned int target = m_graph.link(node, i);
            if (target == node)
                key.insert(key.end(), {ITSELF, 0});
            else if (target >= m_graph.count())
                key.insert(key.end(), {NO_NODE, target});
            else if (m_partner[target] != NONE)
                key.insert(key.end(),
                           {PARTNER, m_graph.isOfA(target) ? target : m_partner[target]});
            else if (isLeft(target))
                return std::nullopt;
            else
                key.insert(key.end(), {EQUAL, m_classes[target]});
        }
        return key;
    });
    return m_pairCount != pairsBefore;
}

void TypePairing::pair(unsigned int a, unsigned int b, Place place) {
    m_partner[a] = b;
    m_partner[b] = a;
    m_places[a] = place;
    ++m_pairCount;
    --excess(a);
    --excess(b);
    m_toFollow.emplace_back(a, b);
}

void TypePairing::followPlaces() {
    for (std::size_t i = 0; i < m_toFollow.size(); ++i) {
        const auto [a, b] = m_toFollow[i];
        if (classId(a) != classId(b) || m_graph.typeOf(a) == nullptr)
            continue;
        const TypeShape shapeA(*m_graph.typeOf(a));
        const TypeShape shapeB(*m_graph.typeOf(b));
        const unsigned int own = std::min(shapeA.ownLinksEnd(), shapeB.ownLinksEnd());
        for (unsigned int link = 0; link < own; ++link)
            follow(a, link, b, link);
        const auto parts = alignLists(shapeA.partNames(), shapeB.partNames());
        const auto followPart = [&, a = a, b = b](const ListAlignment::Match& match) {
            if (shapeA.parts[match.a].linksBegin < shapeA.linksEnd(match.a))
                follow(a, shapeA.parts[match.a].linksBegin, b, shapeB.parts[match.b].linksBegin);
        };
        std::for_each(parts.kept.begin(), parts.kept.end(), followPart);
        std::for_each(parts.moved.begin(), parts.moved.end(), followPart);
    }
    m_toFollow.clear();
}

/// Pairs the types in one place of a pair if they are left over and may be before and after of one
/// type.
void TypePairing::follow(unsigned int a, unsigned int linkA, unsigned int b, unsigned int linkB) {
    const unsigned int targetA = m_graph.link(a, linkA);
    const unsigned int targetB = m_graph.link(b, linkB);
    if (targetA >= m_graph.count() || targetB >= m_graph.count() || !isLeft(targetA) ||
        !isLeft(targetB))
        return;
    if (classId(targetA) == classId(targetB) && haveLikeNames(targetA, targetB))
        pair(targetA, targetB, {a, linkA});
}

bool TypePairing::haveLikeNames(unsigned int a, unsigned int b) const {
    return m_graph.name(a) == m_graph.name(b) || (!isNamed(a) && !isNamed(b)) || isRenamed(a, b);
}

/// Whether nothing in the other file has the name, as is so when a type is renamed.
bool TypePairing::isNameGone(unsigned int node) const {
    const auto& others = m_graph.isOfA(node) ? m_namesOfB : m_namesOfA;
    const unsigned int name = m_graph.name(node);
    return !isNamed(node) || name >= others.size() || !others[name];
}

bool TypePairing::isRenamed(unsigned int a, unsigned int b) const {
    if (m_graph.content(a) != m_graph.content(b) || !isNameGone(a) || !isNameGone(b))
        return false;
    for (unsigned int i = 0; i < m_graph.linkCount(a); ++i) {
        const unsigned int targetA = m_graph.link(a, i);
        const unsigned int targetB = m_graph.link(b, i);
        const bool areNodes = targetA < m_graph.count() && targetB < m_graph.count();
        if (areNodes ? m_classes[targetA] != m_classes[targetB] && m_partner[targetA] != targetB
                     : targetA != targetB)
            return false;
    }
    return true;
}

/// Whether at least half of the parts of the one that has more are in both.
bool TypePairing::haveLikeParts(unsigned int a, unsigned int b) const {
    const auto namesA = TypeShape(*m_graph.typeOf(a)).partNames();
    const auto namesB = TypeShape(*m_graph.typeOf(b)).partNames();
    const auto parts = alignLists(namesA, namesB);
    return 2 * (parts.kept.size() + parts.moved.size()) >= std::max(namesA.size(), namesB.size());
}

/// Says which are left over of the classes that have equals in the other file, but not enough: the
/// last that were not paired yet.
void TypePairing::listLeftOver() {
    std::vector<unsigned int> open = m_excessA;
    for (std::size_t i = 0; i < open.size(); ++i)
        open[i] += m_excessB[i];
    std::vector<bool> isListed(m_graph.count(), false);
    for (const unsigned int node : m_left)
        isListed[node] = true;
    for (auto node = m_graph.nodes().rbegin(); node != m_graph.nodes().rend(); ++node) {
        if (!isListed[*node] && isLeft(*node) && open[m_classes[*node]] != 0) {
            --open[m_classes[*node]];
            m_left.push_back(*node);
        }
    }
    std::sort(m_left.begin(), m_left.end());
}

void TypePairing::collect() {
    for (unsigned int node = 0; node < m_graph.countA(); ++node) {
        if (m_partner[node] != NONE)
            m_changed.push_back(node);
    }
    for (const unsigned int node : m_left) {
        if (!isLeft(node))
            continue;
        --excess(node);
        (m_graph.isOfA(node) ? m_removed : m_added).push_back(node);
    }
}

} // namespace Inspect
