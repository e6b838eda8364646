#include "Inspect/declarations/DeclaredPackages.h"

#include "Inspect/declarations/DeclaredTypes.h"
#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/SystemVerilogNeeds.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr unsigned int NONE = std::numeric_limits<unsigned int>::max();

/// Lists of numbers for each of many numbers, in one block.
class Edges {
public:
    Edges() : m_ends(1) {}

    /// Sorts by the first number of each pair; those of one keep their order.
    Edges(std::size_t count, const std::vector<std::pair<unsigned int, unsigned int>>& pairs)
        : m_ends(count + 1), m_targets(pairs.size()) {
        for (const auto& [from, to] : pairs)
            ++m_ends[from + 1];
        place([&](auto put) {
            for (const auto& [from, to] : pairs)
                put(from, to);
        });
    }

    /// Adds to the list of the next number, until `endList`.
    void add(unsigned int to) { m_targets.push_back(to); }
    void endList() { m_ends.push_back(m_targets.size()); }

    /// The same edges, which lead to numbers that have lists here, the other way round.
    Edges reversed() const {
        Edges users;
        users.m_ends.resize(m_ends.size());
        users.m_targets.resize(m_targets.size());
        for (const unsigned int to : m_targets)
            ++users.m_ends[to + 1];
        users.place([&](auto put) {
            for (unsigned int from = 0; from + 1 < m_ends.size(); ++from) {
                for (std::size_t i = 0; i < count(from); ++i)
                    put(target(from, i), from);
            }
        });
        return users;
    }

    std::size_t count(unsigned int from) const { return m_ends[from + 1] - m_ends[from]; }
    unsigned int target(unsigned int from, std::size_t i) const {
        return m_targets[m_ends[from] + i];
    }

private:
    /// Puts the targets into lists whose lengths stand in place of their ends.
    template <typename PutAll> void place(PutAll putAll) {
        std::partial_sum(m_ends.begin(), m_ends.end(), m_ends.begin());
        std::vector<std::size_t> next(m_ends.begin(), m_ends.end() - 1);
        putAll([&](unsigned int from, unsigned int to) { m_targets[next[from]++] = to; });
    }

    std::vector<std::size_t> m_ends;
    std::vector<unsigned int> m_targets;
};

/// Works the packages out: first their order, then the place of each type.
class PackagePlacement {
public:
    PackagePlacement(const TypeTable& types, const DeclaredTypes& declared)
        : m_types(types), m_declared(declared), m_declaredTypes(types.count, NONE),
          m_owns(types.count, NONE) {
        findDeclaredTypes();
        findPackages();
        findNeeds();
        orderPackages();
        placeWithNeeds();
        placeWithUsers();
        places.reserve(types.count);
        for (unsigned int id = 0; id < types.count; ++id)
            places.push_back(placeOf(m_declaredTypes[id]));
    }

    std::vector<std::string> packages; ///< In order, without the last.
    std::vector<unsigned int> places;  ///< Of types: an index of `packages`, or its size.

    bool isAway(unsigned int id) const {
        return m_owns[id] != NONE && m_ranks[m_owns[id]] != places[id];
    }

private:
    using Pairs = std::vector<std::pair<unsigned int, unsigned int>>;

    unsigned int placeOf(unsigned int id) const {
        const unsigned int place = id < m_placed.size() ? m_placed[id] : NONE;
        return place != NONE ? place : last();
    }

    unsigned int last() const { return static_cast<unsigned int>(packages.size()); }

    bool hasOwn(unsigned int id) const { return m_owns[id] != NONE; }

    /// Whether the type has a declaration of its own.
    bool isNode(unsigned int id) const { return m_declaredTypes[id] == id; }

    /// What stands before "::" in the name of a type, or nothing.
    static std::string_view scopeIn(std::string_view name) {
        const std::size_t end = name.find("::");
        return end == std::string_view::npos || end + 2 == name.size() ? "" : name.substr(0, end);
    }

    static bool isPackage(std::string_view scope) {
        return identifierOf(SourceLanguage::SYSTEM_VERILOG, scope).isName() && scope != "std";
    }

    void findDeclaredTypes() {
        for (unsigned int id = 0; id < m_types.count; ++id) {
            const unsigned int type = m_declared.declaredType(id);
            if (m_declared.isOfLanguage(type) && !m_declared.isPredefined(type))
                m_declaredTypes[id] = type;
        }
    }

    void findPackages() {
        std::unordered_map<std::string_view, unsigned int> scopes;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            const std::string_view scope = isNode(id) ? scopeIn(m_declared.givenName(id)) : "";
            if (!scope.empty())
                m_owns[id] = scopes.try_emplace(scope, scopes.size()).first->second;
        }
        std::vector<bool> isTypeName(scopes.size());
        for (unsigned int id = 0; id < m_types.count; ++id) {
            const bool isSimple = isNode(id) && !hasOwn(id);
            const auto found = isSimple ? scopes.find(m_declared.givenName(id)) : scopes.end();
            if (found != scopes.end())
                isTypeName[found->second] = true;
        }
        keepPackages(scopes, isTypeName);
    }

    /// Numbers the scopes that are packages anew, in the order in which they were found.
    void keepPackages(const std::unordered_map<std::string_view, unsigned int>& scopes,
                      const std::vector<bool>& isTypeName) {
        std::vector<std::string_view> names(scopes.size());
        for (const auto& [name, number] : scopes)
            names[number] = name;
        std::vector<unsigned int> numbers(scopes.size(), NONE);
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (isTypeName[i] || !isPackage(names[i]))
                continue;
            numbers[i] = static_cast<unsigned int>(m_unordered.size());
            m_unordered.emplace_back(names[i]);
        }
        for (unsigned int& package : m_owns)
            package = package != NONE ? numbers[package] : NONE;
    }

    void findNeeds() {
        TypeNeeds found;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (isNode(id))
                findSystemVerilogNeeds(m_types, m_declared, id, found);
            else
                found.named.clear();
            for (const TypeNeed& need : found.named) {
                if (need.typeId >= m_types.count)
                    continue;
                const unsigned int needed = m_declaredTypes[need.typeId];
                if (needed < m_types.count && isNode(needed))
                    m_needs.add(needed);
            }
            m_needs.endList();
        }
        m_users = m_needs.reversed();
    }

    /// Depth first through packages, then their types, then what these need: packages behind all
    /// that they lead to. A circle is cut where it is closed.
    void orderPackages() {
        const auto count = static_cast<unsigned int>(m_unordered.size());
        Pairs members;
        for (unsigned int id = 0; id < m_types.count; ++id) {
            if (hasOwn(id) && m_declared.givenName(id).find("#(") == std::string_view::npos)
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
                if (i < (isPackage ? types.count(node) : m_needs.count(node - count))) {
                    const unsigned int to =
                        isPackage ? types.target(node, i) : m_needs.target(node - count, i);
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
                    spread(starts.target(place, i), place, m_users,
                           [](unsigned int) { return true; });
            }
        }
    }

    /// Places what `starts` leads to, as early as it can be, over types that are accepted.
    template <typename Accept> void placeNeedsOf(const Edges& starts, Accept accept) {
        for (unsigned int place = 0; place <= last(); ++place) {
            for (std::size_t i = 0; i < starts.count(place); ++i)
                spread(starts.target(place, i), place, m_needs, accept);
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
            m_isFloating[id] = !hasOwn(id) && (m_declared.givenName(id).empty() ||
                                               latestNeeds[id] == NONE || isBetween);
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
    const DeclaredTypes& m_declared;
    std::vector<unsigned int> m_declaredTypes; ///< The type whose declaration a type shares, mostly
                                               ///< itself, or NONE where it needs or has none.
    std::vector<std::string> m_unordered;      ///< Packages as they were found.
    std::vector<unsigned int> m_owns;          ///< The package in a type's name, as it was found.
    std::vector<unsigned int> m_ranks;         ///< The place of each of these packages.
    std::vector<bool> m_isFloating;            ///< Types that go with their users.
    Edges m_needs;                             ///< What types need.
    Edges m_users;                             ///< What needs them.
    std::vector<unsigned int> m_placed;
};

} // namespace

DeclaredPackages::DeclaredPackages(const TypeTable& types, const DeclaredTypes& declared) {
    PackagePlacement placement(types, declared);
    m_names = std::move(placement.packages);
    std::string last = "types";
    while (std::find(m_names.begin(), m_names.end(), last) != m_names.end())
        last += '_';
    m_away.reserve(types.count);
    for (unsigned int id = 0; id < types.count; ++id)
        m_away.push_back(placement.isAway(id));
    m_places = std::move(placement.places);
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
