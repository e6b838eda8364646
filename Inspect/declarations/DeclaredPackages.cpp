#include "Inspect/declarations/DeclaredPackages.h"

#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/SystemVerilogNeeds.h"
#include "Inspect/words/TypeText.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr unsigned int NONE = std::numeric_limits<unsigned int>::max();

/// Lists of numbers for each of many numbers, in one block.
class Edges {
public:
    /// Sorts by the first number of each pair; those of one keep their order.
    Edges(std::size_t count, const std::vector<std::pair<unsigned int, unsigned int>>& pairs)
        : m_ends(count + 1), m_targets(pairs.size()) {
        for (const auto& [from, to] : pairs)
            ++m_ends[from + 1];
        std::partial_sum(m_ends.begin(), m_ends.end(), m_ends.begin());
        std::vector<std::size_t> next(m_ends.begin(), m_ends.end() - 1);
        for (const auto& [from, to] : pairs)
            m_targets[next[from]++] = to;
    }

    std::size_t count(unsigned int from) const { return m_ends[from + 1] - m_ends[from]; }
    unsigned int target(unsigned int from, std::size_t i) const {
        return m_targets[m_ends[from] + i];
    }

private:
    std::vector<std::size_t> m_ends;
    std::vector<unsigned int> m_targets;
};

/// Works the packages out: first their order, then the place of each type.
class PackagePlacement {
public:
    PackagePlacement(const TypeTable& types, const std::vector<unsigned int>& declaredTypes)
        : m_types(types), m_declaredTypes(declaredTypes), m_owns(types.count, NONE) {
        findPackages();
        findNeeds();
        orderPackages();
        placeWithNeeds();
        placeWithUsers();
        for (unsigned int id = 0; id < types.count; ++id)
            places.push_back(placeOf(declaredTypes[id]));
    }

    std::vector<std::string> packages; ///< In order, without the last.
    std::vector<unsigned int> places;  ///< Of types: an index of `packages`, or its size.

    bool isAway(unsigned int id) const {
        return m_owns[id] != NONE && m_ranks[m_owns[id]] != places[id];
    }

private:
    using Pairs = std::vector<std::pair<unsigned int, unsigned int>>;

    std::string_view nameOf(unsigned int id) const {
        const RTBaseType* type = m_types.typeOf(id);
        return type != nullptr && isGivenName(type->m_name) ? type->m_name : "";
    }

    unsigned int placeOf(unsigned int id) const {
        const unsigned int place = id < m_placed.size() ? m_placed[id] : NONE;
        return place != NONE ? place : last();
    }

    unsigned int last() const { return static_cast<unsigned int>(packages.size()); }

    bool hasOwn(unsigned int id) const { return m_owns[id] != NONE; }

    /// Whether the type has a declaration of its own.
    bool isNode(unsigned int id) const { return m_declaredTypes[id] == id; }

    /// The package in the name of a type, or nothing.
    static std::string_view packageIn(std::string_view name) {
        const std::size_t end = name.find("::");
        if (end == std::string_view::npos || end == 0 || end + 2 == name.size())
            return {};
        const std::string_view package = name.substr(0, end);
        const bool isSimple = identifierOf(SourceLanguage::SYSTEM_VERILOG, package) == package;
        return isSimple && package != "std" ? package : std::string_view();
    }

    void findPackages() {
        std::unordered_set<std::string_view> typeNames;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (isNode(id))
                typeNames.insert(nameOf(id));
        }
        std::unordered_map<std::string_view, unsigned int> numbers;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            const std::string_view package = isNode(id) ? packageIn(nameOf(id)) : "";
            if (package.empty() || typeNames.count(package) != 0)
                continue;
            const auto [entry, isNew] = numbers.try_emplace(package, numbers.size());
            if (isNew)
                m_unordered.emplace_back(package);
            m_owns[id] = entry->second;
        }
    }

    void findNeeds() {
        Pairs needs;
        TypeNeeds found;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (!isNode(id))
                continue;
            findSystemVerilogNeeds(m_types, id, found);
            for (const TypeNeed& need : found.named) {
                if (need.typeId >= m_types.count)
                    continue;
                const unsigned int needed = m_declaredTypes[need.typeId];
                if (needed < m_types.count && isNode(needed))
                    needs.emplace_back(id, needed);
            }
        }
        m_needs.emplace_back(m_types.count, needs);
        for (auto& [user, needed] : needs)
            std::swap(user, needed);
        m_needs.emplace_back(m_types.count, needs);
    }

    const Edges& needs() const { return m_needs.front(); }
    const Edges& users() const { return m_needs.back(); }

    /// Depth first through packages, then their types, then what these need: packages behind all
    /// that they lead to. A circle is cut where it is closed.
    void orderPackages() {
        const auto count = static_cast<unsigned int>(m_unordered.size());
        Pairs members;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (hasOwn(id) && nameOf(id).find("#(") == std::string_view::npos)
                members.emplace_back(m_owns[id], id);
        }
        const Edges types(count, members);
        m_ranks.resize(count);
        std::vector<bool> isSeen(count + m_types.count);
        struct Step {
            unsigned int node; // A package, or a type after them all.
            std::size_t next;
        };
        std::vector<Step> path;
        const auto enter = [&](unsigned int node) {
            if (!isSeen[node])
                path.push_back({node, 0});
            isSeen[node] = true;
        };
        for (unsigned int package = 0; package < count; ++package) {
            enter(package);
            while (!path.empty()) {
                const unsigned int node = path.back().node;
                const std::size_t i = path.back().next++;
                const bool isPackage = node < count;
                if (i < (isPackage ? types.count(node) : needs().count(node - count))) {
                    const unsigned int to =
                        isPackage ? types.target(node, i) : needs().target(node - count, i);
                    enter(!isPackage && hasOwn(to) ? m_owns[to] : count + to);
                    continue;
                }
                path.pop_back();
                if (!isPackage)
                    continue;
                m_ranks[node] = last();
                packages.push_back(m_unordered[node]);
            }
        }
    }

    /// Sets the place of `start` and of all that is to be reached over `edges` and has none.
    template <typename Accept>
    void spread(unsigned int start, unsigned int place, const Edges& edges, Accept accept) {
        if (m_placed[start] == NONE)
            m_placed[start] = place;
        std::vector<unsigned int> open = {start};
        while (!open.empty()) {
            const unsigned int id = open.back();
            open.pop_back();
            for (std::size_t i = 0; i < edges.count(id); ++i) {
                const unsigned int to = edges.target(id, i);
                if (m_placed[to] != NONE || !accept(to))
                    continue;
                m_placed[to] = place;
                open.push_back(to);
            }
        }
    }

    /// Types by a key below `last() + 1`, each list in the order of ids; a key above leaves one
    /// out.
    template <typename Key> Edges sorted(Key key) const {
        Pairs pairs;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (isNode(id) && key(id) <= last())
                pairs.emplace_back(key(id), id);
        }
        return {packages.size() + 1, pairs};
    }

    /// Places what `starts` has, and what leads to it, as late as it takes.
    void placeUsersOf(const Edges& starts) {
        m_placed.assign(m_types.count, NONE);
        for (unsigned int place = last() + 1; place-- > 0;) {
            for (std::size_t i = 0; i < starts.count(place); ++i) {
                if (m_placed[starts.target(place, i)] == NONE)
                    spread(starts.target(place, i), place, users(),
                           [](unsigned int) { return true; });
            }
        }
    }

    /// Places what `starts` leads to, as early as it can be, over types that are accepted.
    template <typename Accept> void placeNeedsOf(const Edges& starts, Accept accept) {
        for (unsigned int place = 0; place <= last(); ++place) {
            for (std::size_t i = 0; i < starts.count(place); ++i)
                spread(starts.target(place, i), place, needs(), accept);
        }
    }

    /// A type with a package is in the latest one that it leads to. A named type without one floats
    /// if all packages that it leads to are before the first that leads to it; else it is in the
    /// last.
    void placeWithNeeds() {
        const Edges owned =
            sorted([&](unsigned int id) { return hasOwn(id) ? m_ranks[m_owns[id]] : NONE; });
        placeUsersOf(owned);
        const std::vector<unsigned int> latestNeeds = m_placed;
        m_placed.assign(m_types.count, NONE);
        placeNeedsOf(owned, [this](unsigned int id) { return !hasOwn(id); });
        m_isFloating.resize(m_types.count);
        for (unsigned int id = 0; id < m_types.count; ++id) {
            const bool isBetween = m_placed[id] != NONE && m_placed[id] > latestNeeds[id];
            m_isFloating[id] =
                !hasOwn(id) && (nameOf(id).empty() || latestNeeds[id] == NONE || isBetween);
        }
        placeUsersOf(sorted([&](unsigned int id) {
            if (hasOwn(id))
                return m_ranks[m_owns[id]];
            return m_isFloating[id] ? NONE : last();
        }));
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (m_isFloating[id])
                m_placed[id] = NONE;
        }
    }

    /// All others go with the first package that uses them.
    void placeWithUsers() {
        placeNeedsOf(sorted([&](unsigned int id) { return m_placed[id]; }),
                     [this](unsigned int id) { return m_isFloating[id]; });
    }

    const TypeTable& m_types;
    const std::vector<unsigned int>& m_declaredTypes;
    std::vector<std::string> m_unordered; ///< Packages as they were found.
    std::vector<unsigned int> m_owns;     ///< The package in a type's name, as it was found.
    std::vector<unsigned int> m_ranks;    ///< The place of each of these packages.
    std::vector<bool> m_isFloating;       ///< Types that go with their users.
    std::vector<Edges> m_needs;           ///< What types need, and what needs them.
    std::vector<unsigned int> m_placed;
};

} // namespace

DeclaredPackages::DeclaredPackages(const TypeTable& types,
                                   const std::vector<unsigned int>& declaredTypes) {
    PackagePlacement placement(types, declaredTypes);
    m_names = std::move(placement.packages);
    std::string last = "types";
    while (std::find(m_names.begin(), m_names.end(), last) != m_names.end())
        last += '_';
    m_places = placement.places;
    for (unsigned int id = 0; id < types.count; ++id)
        m_away.push_back(placement.isAway(id));
    m_names.push_back(last);
}

std::string_view DeclaredPackages::localName(unsigned int id, std::string_view name) const {
    if (m_away.empty() || isAway(id))
        return name;
    const std::string& package = m_names[packageOf(id)];
    const bool isInside = name.size() > package.size() + 2 &&
                          name.substr(0, package.size()) == package &&
                          name.substr(package.size(), 2) == "::";
    return isInside ? name.substr(package.size() + 2) : name;
}

} // namespace Inspect
