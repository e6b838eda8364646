#include "Inspect/diff/ListAlignment.h"

#include <algorithm>
#include <unordered_map>

namespace Inspect {

namespace {

using Names = std::vector<std::string_view>;
using Positions = std::vector<unsigned int>;
using Matches = std::vector<ListAlignment::Match>;

/// Finds the entries of a list by name, each once.
class EntriesByName {
public:
    explicit EntriesByName(const Names& names) : m_next(names.size()) {
        for (unsigned int i = static_cast<unsigned int>(names.size()); i-- > 0;) {
            const auto [entry, isNew] = m_first.emplace(names[i], i);
            m_next[i] = isNew ? NONE : entry->second;
            entry->second = i;
        }
    }

    bool take(std::string_view name, unsigned int& position) {
        const auto entry = m_first.find(name);
        if (entry == m_first.end() || entry->second == NONE)
            return false;
        position = entry->second;
        entry->second = m_next[position];
        return true;
    }

private:
    static constexpr unsigned int NONE = 0xFFFFFFFF;

    std::unordered_map<std::string_view, unsigned int> m_first;
    Positions m_next; ///< The next entry of the same name.
};

/// Whether each match is one of a longest series in which `b` grows.
std::vector<bool> areInOrder(const Matches& matches) {
    Positions last; // Of the series of each length, the match that ends it with the smallest b.
    Positions previous(matches.size());
    for (unsigned int i = 0; i < matches.size(); ++i) {
        const auto place = std::lower_bound(
            last.begin(), last.end(), matches[i].b,
            [&](unsigned int match, unsigned int b) { return matches[match].b < b; });
        previous[i] = place == last.begin() ? i : *(place - 1);
        if (place == last.end())
            last.push_back(i);
        else
            *place = i;
    }
    std::vector<bool> inOrder(matches.size(), false);
    if (last.empty())
        return inOrder;
    unsigned int match = last.back();
    for (; previous[match] != match; match = previous[match])
        inOrder[match] = true;
    inOrder[match] = true;
    return inOrder;
}

/// Pairs the removed with the added entries that stand between the same kept ones.
void findReplaced(ListAlignment& alignment) {
    Positions removed, added;
    std::size_t keptBeforeA = 0, keptBeforeB = 0;
    const Matches& kept = alignment.kept;
    auto b = alignment.added.begin();
    for (const unsigned int a : alignment.removed) {
        while (keptBeforeA < kept.size() && kept[keptBeforeA].a < a)
            ++keptBeforeA;
        for (; b != alignment.added.end(); ++b) {
            while (keptBeforeB < kept.size() && kept[keptBeforeB].b < *b)
                ++keptBeforeB;
            if (keptBeforeB >= keptBeforeA)
                break;
            added.push_back(*b);
        }
        if (b != alignment.added.end() && keptBeforeB == keptBeforeA)
            alignment.replaced.push_back({a, *b++});
        else
            removed.push_back(a);
    }
    added.insert(added.end(), b, alignment.added.end());
    alignment.removed = std::move(removed);
    alignment.added = std::move(added);
}

} // namespace

ListAlignment alignLists(const Names& a, const Names& b) {
    ListAlignment alignment;
    Matches matches;
    EntriesByName entries(b);
    std::vector<bool> isMatched(b.size(), false);
    for (unsigned int i = 0; i < a.size(); ++i) {
        unsigned int j = i;
        if (entries.take(a[i], j)) {
            matches.push_back({i, j});
            isMatched[j] = true;
        } else {
            alignment.removed.push_back(i);
        }
    }
    for (unsigned int j = 0; j < b.size(); ++j) {
        if (!isMatched[j])
            alignment.added.push_back(j);
    }
    const std::vector<bool> inOrder = areInOrder(matches);
    for (std::size_t i = 0; i < matches.size(); ++i)
        (inOrder[i] ? alignment.kept : alignment.moved).push_back(matches[i]);
    findReplaced(alignment);
    return alignment;
}

} // namespace Inspect
