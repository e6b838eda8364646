#include "Import/VhdlMatching.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Import {

namespace {

constexpr std::uint32_t NONE = VhdlType::NONE;

bool haveSameNames(const PoolList<VhdlPart>& a, const PoolList<VhdlPart>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.name == y.name && x.value == y.value;
    });
}

/// Whether a listing that says `listed` can mean `exact`.
bool isPrintedAlike(double listed, double exact) {
    char digits[2][32];
    std::snprintf(digits[0], sizeof digits[0], "%g", listed);
    std::snprintf(digits[1], sizeof digits[1], "%g", exact);
    return std::string(digits[0]) == digits[1];
}

bool canMean(const VhdlRealRange* listed, const VhdlRealRange* exact) {
    return exact == nullptr || listed == nullptr ||
           (listed->isDownto == exact->isDownto && isPrintedAlike(listed->left, exact->left) &&
            isPrintedAlike(listed->right, exact->right));
}

/// A range that the listing has, as one of reals.
VhdlRealRange asReal(const VhdlRange& range) {
    return {false, range.isDownto, static_cast<double>(range.left),
            static_cast<double>(range.right)};
}

/// Finds what types of a listing are among those of waves.
class DumpJoiner {
public:
    DumpJoiner(VhdlTypes waves, VhdlTypes listings)
        : m_waves(std::move(waves)), m_listings(std::move(listings)), m_offset(m_waves.size()),
          m_joined(m_listings.size(), NONE), m_isDeclared(m_waves.size()) {
        for (const VhdlDeclaration& declaration : m_waves.declarations())
            m_isDeclared[declaration.type] = true;
        for (std::uint32_t id = 0; id < m_waves.size(); ++id)
            m_byName[m_waves[id].name].push_back(id);
    }

    VhdlTypes join() {
        std::uint32_t next = m_offset;
        for (std::uint32_t id = 0; id < m_listings.size(); ++id) {
            const std::uint32_t wave = findWave(id);
            m_joined[id] = wave != NONE ? wave : next++;
        }
        m_firstInput = m_waves.takeRest(m_listings, m_joined);
        for (std::uint32_t id = 0; id < m_listings.size(); ++id) {
            if (m_joined[id] < m_offset)
                complete(m_waves[m_joined[id]], m_listings[id]);
            else
                m_waves.add(joinedType(m_listings[id]));
        }
        return std::move(m_waves);
    }

private:
    /// The type of waves that one of a listing means: the one that says the same, or else one that
    /// says less; NONE if there is none.
    std::uint32_t findWave(std::uint32_t listed) {
        const VhdlType& type = m_listings[listed];
        const auto at = m_byName.find(type.name);
        if (at == m_byName.end() || type.name.empty())
            return NONE;
        std::uint32_t found = NONE;
        std::size_t count = 0;
        for (const std::uint32_t wave : at->second) {
            if (!canMean(listed, wave) || (saysLess(wave, type) && !mayComplete(wave, type)))
                continue;
            count += m_isDeclared[wave] ? 1 : 0;
            const bool isOpenHalf = found != NONE && !m_isDeclared[found] && m_isDeclared[wave] &&
                                    type.kind == VhdlKind::UNKNOWN;
            if (found == NONE || isOpenHalf || (saysLess(found, type) && !saysLess(wave, type)))
                found = wave;
        }
        // A name alone means a type only if no other one of that name was declared.
        return type.kind == VhdlKind::UNKNOWN && count > 1 ? NONE : found;
    }

    /// Whether the waves have the open half alone of an array that was declared in one piece.
    bool saysLess(std::uint32_t wave, const VhdlType& listed) const {
        return listed.kind == VhdlKind::ARRAY &&
               !std::equal(listed.of.ranges.begin(), listed.of.ranges.end(),
                           m_waves[wave].of.ranges.begin());
    }

    /// An open half gets the ranges of one declaration.
    bool mayComplete(std::uint32_t wave, const VhdlType& listed) {
        return m_isDeclared[wave] &&
               areEqual(m_completed.emplace(wave, listed.of.ranges).first->second,
                        listed.of.ranges);
    }

    bool canMean(std::uint32_t listed, std::uint32_t wave) {
        const std::uint64_t key = std::uint64_t(listed) << 32 | wave;
        const auto [at, isNew] = m_canMean.emplace(key, true);
        if (isNew) {
            const bool result = compare(m_listings[listed], m_waves[wave]);
            m_canMean[key] = result;
            return result;
        }
        return at->second;
    }

    bool compare(const VhdlType& listed, const VhdlType& wave) {
        if (listed.kind == VhdlKind::UNKNOWN && listed.name.empty())
            return true;
        if (listed.name != wave.name)
            return false;
        if (listed.kind == VhdlKind::UNKNOWN)
            return true;
        if (listed.mayBeReal && wave.kind == VhdlKind::REAL)
            return canMeanReal(asReal(listed.range), wave);
        if (listed.kind != wave.kind || !haveSameRange(listed, wave))
            return false;
        switch (listed.kind) {
        case VhdlKind::ENUMERATION:
        case VhdlKind::PHYSICAL: return haveSameNames(listed.parts, wave.parts);
        case VhdlKind::REAL: return Import::canMean(listed.realRange, wave.realRange);
        case VhdlKind::ARRAY: return compareArrays(listed, wave);
        case VhdlKind::RECORD:
            return haveSameNames(listed.parts, wave.parts) &&
                   std::equal(listed.uses.begin(), listed.uses.end(), wave.uses.begin(),
                              [&](const VhdlUse& a, const VhdlUse& b) {
                                  return isUntold(a) ||
                                         (haveSameRanges(a, b.ranges) && canMeanUse(a, b.type));
                              });
        case VhdlKind::SUBTYPE:
            return isUntold(listed.of) ||
                   (canMeanUse(listed.of, wave.of.type) && haveSameRanges(listed, wave));
        default: return true;
        }
    }

    static bool canMeanReal(const VhdlRealRange& listed, const VhdlType& wave) {
        return Import::canMean(&listed, wave.realRange);
    }

    static bool haveSameRange(const VhdlType& listed, const VhdlType& wave) {
        return listed.range.isOpen || wave.range.isOpen || listed.range == wave.range;
    }

    /// Whether the listing does not say what is used, nor with which ranges.
    bool isUntold(const VhdlUse& listed) const {
        const VhdlType& type = m_listings[listed.type];
        return type.kind == VhdlKind::UNKNOWN && type.name.empty();
    }

    bool canMeanUse(const VhdlUse& listed, std::uint32_t wave) {
        return canMean(listed.type, wave) ||
               std::any_of(listed.alternatives.begin(), listed.alternatives.end(),
                           [&](std::uint32_t type) { return canMean(type, wave); });
    }

    /// Whether the listing has no more than a name, if that, of what is used.
    bool isNameAlone(const VhdlUse& listed) const {
        return m_listings[listed.type].kind == VhdlKind::UNKNOWN;
    }

    /// The ranges from `own` on. Those that a type leaves open are not in a listing that has its
    /// name alone.
    bool haveSameRanges(const VhdlUse& listed, std::span<const VhdlRange> wave,
                        std::size_t own = 0) const {
        const std::span<const VhdlRange> rest = wave.subspan(own);
        if (isNameAlone(listed) && listed.ranges.size() == own)
            return isUntold(listed) ||
                   std::all_of(rest.begin(), rest.end(),
                               [](const VhdlRange& range) { return range.isOpen; });
        return areEqual(listed.ranges.subspan(own), rest);
    }

    bool compareArrays(const VhdlType& listed, const VhdlType& wave) {
        const std::size_t own = listed.uses.size();
        if (own != wave.uses.size() || !haveSameRanges(listed.of, wave.of.ranges, own))
            return false;
        for (std::size_t i = 0; i < own; ++i) {
            if (listed.of.ranges[i] != wave.of.ranges[i] && !wave.of.ranges[i].isOpen)
                return false;
            const VhdlUse& index = listed.uses[i];
            if (index.type != NONE && !canMeanUse(index, wave.uses[i].type))
                return false;
        }
        return canMeanUse(listed.of, wave.of.type);
    }

    /// A subtype of an array in one piece has no ranges in a listing, and the array's in waves.
    bool haveSameRanges(const VhdlType& listed, const VhdlType& wave) const {
        if (haveSameRanges(listed.of, wave.of.ranges))
            return true;
        return listed.of.ranges.empty() &&
               areEqual(m_listings[listed.of.type].of.ranges, wave.of.ranges);
    }

    /// How many ranges a type leaves open.
    static std::size_t openCount(const VhdlType& type) {
        const auto openIn = [](const VhdlUse& use) {
            return std::count_if(use.ranges.begin(), use.ranges.end(),
                                 [](const VhdlRange& range) { return range.isOpen; });
        };
        return static_cast<std::size_t>(std::accumulate(
            type.uses.begin(), type.uses.end(), openIn(type.of),
            [&](std::ptrdiff_t count, const VhdlUse& use) { return count + openIn(use); }));
    }

    VhdlUse joinedUse(VhdlUse use) {
        use.type = m_joined[use.type];
        std::vector<std::uint32_t> alternatives;
        for (const std::uint32_t type : use.alternatives)
            alternatives.push_back(m_joined[type]);
        use.alternatives = m_waves.pool().keep(alternatives);
        return use;
    }

    /// Adds the ranges that a type leaves open of which the listing has the name alone. `own` are
    /// there in front of them.
    void addOpenRanges(VhdlUse& listed, std::size_t own = 0) {
        const std::uint32_t type = m_joined[listed.type];
        if (!isNameAlone(listed) || type >= m_offset || listed.ranges.size() != own)
            return;
        std::vector<VhdlRange> ranges(listed.ranges.begin(), listed.ranges.end());
        ranges.resize(own + openCount(m_waves[type]));
        listed.ranges = m_waves.pool().keep(ranges);
    }

    VhdlType joinedType(VhdlType type) {
        if (type.kind == VhdlKind::ARRAY || type.kind == VhdlKind::SUBTYPE)
            addOpenRanges(type.of, type.uses.size());
        std::vector<VhdlUse> uses(type.uses.begin(), type.uses.end());
        for (VhdlUse& use : uses) {
            if (type.kind == VhdlKind::RECORD)
                addOpenRanges(use);
        }
        type.of = joinedUse(type.of);
        // A listing may not tell how many ranges its members leave open.
        if (type.mayBePart && type.of.type < m_offset)
            type.of.ranges = openRanges(openCount(m_waves[type.of.type]));
        for (VhdlUse& use : uses) {
            if (use.type != NONE)
                use = joinedUse(use);
        }
        type.uses = m_waves.pool().keep(uses);
        type.input += m_firstInput;
        return type;
    }

    /// The ranges, the first of them replaced.
    static std::vector<VhdlRange> withBegin(std::span<const VhdlRange> ranges,
                                            std::span<const VhdlRange> begin) {
        std::vector<VhdlRange> result(ranges.begin(), ranges.end());
        std::copy(begin.begin(), begin.end(), result.begin());
        return result;
    }

    /// Gives a type of waves what a listing says and they do not.
    void complete(VhdlType& wave, const VhdlType& listed) {
        if (wave.range.isOpen)
            wave.range = listed.range;
        if (wave.realRange == nullptr)
            wave.realRange = listed.realRange;
        if (listed.kind == VhdlKind::ARRAY)
            wave.of.ranges = m_waves.pool().keep(withBegin(wave.of.ranges, listed.of.ranges));
        if (listed.kind == VhdlKind::SUBTYPE && !isUntold(listed.of) &&
            !areEqual(listed.of.ranges, wave.of.ranges))
            wave.of = joinedUse(listed.of);
    }

    VhdlTypes m_waves;
    VhdlTypes m_listings;
    std::uint32_t m_offset;
    std::uint32_t m_firstInput = 0;      ///< Of the listings.
    std::vector<std::uint32_t> m_joined; ///< What each type of the listings has become.
    std::vector<bool> m_isDeclared;      ///< Of each type of the waves.
    std::unordered_map<std::uint32_t, std::span<const VhdlRange>> m_completed;
    std::unordered_map<std::string_view, std::vector<std::uint32_t>> m_byName;
    std::unordered_map<std::uint64_t, bool> m_canMean;
};

} // namespace

VhdlTypes joinDumps(VhdlTypes waves, VhdlTypes listings) {
    if (listings.size() == 0)
        return waves;
    return DumpJoiner(std::move(waves), std::move(listings)).join();
}

} // namespace Import
