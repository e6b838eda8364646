#include "Inspect/views/TypeStatistics.h"

#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/model/TypeNesting.h"
#include "Inspect/model/TypeReferences.h"
#include "Inspect/words/TypeKind.h"

#include <algorithm>
#include <map>

namespace Inspect {

using namespace RTTI;

namespace {

std::size_t partsOf(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::RECORD:
    case ClassId::CLASS: return static_cast<const RTAggregateType&>(type).m_members.size();
    case ClassId::SEQ_ENUM: return static_cast<const RTSeqEnumType&>(type).m_enumeratorNames.size();
    case ClassId::DISCRETE_ENUM:
        return static_cast<const RTDiscreteEnumType&>(type).m_enumerators.size();
    case ClassId::PHYSICAL: return static_cast<const RTPhysicalType&>(type).m_units.size();
    default: return 0;
    }
}

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

/// Those that are not referred to, in the order of the ids.
class UnusedTypes {
public:
    explicit UnusedTypes(unsigned int count) : m_isUsed(count) {}

    void meet(unsigned int id, const RTBaseType& type) {
        linksOf(type, m_links);
        for (const TypeLink& link : m_links) {
            if (link.typeId < m_isUsed.size() && link.typeId != id)
                m_isUsed[link.typeId] = true;
        }
    }

    std::vector<unsigned int> in(const TypeTable& types) const {
        std::vector<unsigned int> unused;
        for (unsigned int id = 0; id < types.count; ++id) {
            if (!m_isUsed[id] && types.typeOf(id) != nullptr)
                unused.push_back(id);
        }
        return unused;
    }

private:
    std::vector<bool> m_isUsed;
    std::vector<TypeLink> m_links;
};

/// By class and detail.
using KindCounts = std::map<std::pair<unsigned int, unsigned int>, TypeStatistics::KindCount>;

TypeStatistics::KindCount& countOf(KindCounts& counts, const RTBaseType* type) {
    const unsigned int kindCode = type != nullptr ? type->GetClassId() : 0;
    const unsigned int detail = type != nullptr ? kindDetailOf(*type) : 0;
    const auto [count, isNew] = counts.try_emplace({kindCode, detail});
    if (isNew)
        count->second = {kindCode, detail, type != nullptr ? kindOf(*type) : BUILDS_NO_TYPE};
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

} // namespace

TypeStatistics statisticsOf(const TypeTable& types, const RecordSizes& sizes, unsigned int top) {
    TypeStatistics statistics;
    statistics.types = types.count;
    KindCounts kinds;
    Ranking largest(top);
    Ranking longest(top);
    UnusedTypes unused(types.count);
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTBaseType* type = types.typeOf(id);
        const unsigned long long bytes = sizes(id);
        TypeStatistics::KindCount& kind = countOf(kinds, type);
        ++kind.types;
        kind.bytes += bytes;
        statistics.bytes += bytes;
        if (type == nullptr)
            continue;
        const bool isVhdl = languageOf(*type) == SourceLanguage::VHDL;
        ++(isVhdl ? statistics.vhdlTypes : statistics.systemVerilogTypes);
        largest.add(id, bytes);
        if (const std::size_t parts = partsOf(*type))
            longest.add(id, parts);
        unused.meet(id, *type);
    }
    statistics.kinds = sortedKinds(kinds);
    statistics.nesting = deepestNesting(types);
    statistics.largest = largest.take();
    statistics.longest = longest.take();
    statistics.unused = unused.in(types);
    return statistics;
}

} // namespace Inspect
