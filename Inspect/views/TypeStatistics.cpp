#include "Inspect/views/TypeStatistics.h"

#include "Inspect/views/TypeNesting.h"
#include "Inspect/views/TypeOutlines.h"
#include "Inspect/words/TypeKind.h"

#include <algorithm>
#include <map>

namespace Inspect {

using namespace RTTI;

namespace {

/// Keeps the types that have most of something, most first; of equals the first that came.
class Ranking {
public:
    explicit Ranking(unsigned int top) : m_top(top) {}

    void add(unsigned int id, unsigned long long amount) {
        if (m_ranked.size() == m_top && (m_top == 0 || m_ranked.back().amount >= amount))
            return;
        const auto place =
            std::find_if(m_ranked.begin(), m_ranked.end(),
                         [&](const TypeStatistics::Ranked& r) { return r.amount < amount; });
        m_ranked.insert(place, {id, amount});
        if (m_ranked.size() > m_top)
            m_ranked.pop_back();
    }

    std::vector<TypeStatistics::Ranked> take() { return std::move(m_ranked); }

private:
    unsigned int m_top;
    std::vector<TypeStatistics::Ranked> m_ranked;
};

/// The types that no other type refers to, in the order of their ids.
std::vector<unsigned int> unusedOf(const TypeOutlines& types) {
    std::vector<bool> isUsed(types.count());
    for (unsigned int id = 0; id < types.count(); ++id) {
        for (const TypeOutlines::Link& link : types.linksOf(id)) {
            if (link.typeId < types.count() && link.typeId != id)
                isUsed[link.typeId] = true;
        }
    }
    std::vector<unsigned int> unused;
    for (unsigned int id = 0; id < types.count(); ++id) {
        if (!isUsed[id] && types.hasType(id))
            unused.push_back(id);
    }
    return unused;
}

/// By class and detail.
using KindCounts = std::map<std::pair<unsigned int, unsigned int>, TypeStatistics::KindCount>;

TypeStatistics::KindCount& countOf(KindCounts& counts, unsigned int kindCode, unsigned int detail) {
    const auto [count, isNew] = counts.try_emplace({kindCode, detail});
    if (isNew)
        count->second = {kindCode, detail,
                         kindCode != 0 ? kindOf(kindCode, detail) : BUILDS_NO_TYPE};
    return count->second;
}

std::vector<TypeStatistics::KindCount> sortedKinds(const KindCounts& counts) {
    std::vector<TypeStatistics::KindCount> kinds;
    for (const auto& [code, count] : counts)
        kinds.push_back(count);
    std::stable_sort(kinds.begin(), kinds.end(), [](const auto& a, const auto& b) {
        return a.types != b.types ? a.types > b.types : a.kind < b.kind;
    });
    return kinds;
}

TypeStatistics statisticsOf(const TypeOutlines& types, unsigned int top) {
    TypeStatistics statistics;
    statistics.types = types.count();
    KindCounts kinds;
    Ranking largest(top);
    Ranking longest(top);
    for (unsigned int id = 0; id < types.count(); ++id) {
        const TypeOutlines::Outline& type = types[id];
        TypeStatistics::KindCount& kind = countOf(kinds, type.kindCode, type.detail);
        ++kind.types;
        kind.bytes += type.bytes;
        statistics.bytes += type.bytes;
        if (!types.hasType(id))
            continue;
        const bool isVhdl = types.languageOf(id) == SourceLanguage::VHDL;
        ++(isVhdl ? statistics.vhdlTypes : statistics.systemVerilogTypes);
        largest.add(id, type.bytes);
        if (type.parts != 0)
            longest.add(id, type.parts);
    }
    statistics.kinds = sortedKinds(kinds);
    statistics.nesting = deepestNesting(types);
    statistics.largest = largest.take();
    statistics.longest = longest.take();
    statistics.unused = unusedOf(types);
    return statistics;
}

} // namespace

TypeStatistics statisticsOf(const TypeTable& types, const RecordSizes& sizes, unsigned int top) {
    return statisticsOf(TypeOutlines(types, sizes), top);
}

TypeStatistics statisticsOf(OVAT::IBlockManager& storage, unsigned long long storageSize,
                            unsigned long long baseOffset, unsigned int top) {
    return statisticsOf(TypeOutlines(storage, storageSize, baseOffset), top);
}

} // namespace Inspect
