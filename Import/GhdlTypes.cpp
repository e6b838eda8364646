#include "Import/GhdlTypes.h"

#include "Import/GhdlScopes.h"
#include "Import/ImportError.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <utility>

namespace Import {

namespace {

using Form = ListedType::Form;

constexpr std::uint32_t NONE = VhdlType::NONE;

/// The numbers that GHDL prints for the bounds of all reals.
constexpr std::string_view LARGEST_REAL = "1.79769e+308";

/// Whole numbers that are larger are told from reals by the way in which they are printed.
constexpr std::int64_t MOST_AS_REAL = 999'999;

bool isNumber(const std::string& bound) {
    const std::size_t digit = bound[0] == '-' ? 1 : 0;
    return digit < bound.size() && bound[digit] >= '0' && bound[digit] <= '9';
}

bool isWholeNumber(const std::string& bound) {
    return isNumber(bound) && bound.find_first_not_of("-0123456789") == std::string::npos;
}

bool hasWholeNumbers(const ListedRange& range) {
    return isWholeNumber(range.left) && isWholeNumber(range.right);
}

/// Not of literals, nor of what may be a whole number.
bool isOfReals(const ListedRange& range) {
    const auto isReal = [](const std::string& bound) {
        return (isNumber(bound) && !isWholeNumber(bound)) || bound == "inf" || bound == "-inf";
    };
    return isReal(range.left) || isReal(range.right);
}

std::optional<std::size_t> positionOf(const ListedType& enumeration, const std::string& literal) {
    const auto at = std::find_if(enumeration.parts.begin(), enumeration.parts.end(),
                                 [&](const ListedPart& part) { return part.name == literal; });
    if (at == enumeration.parts.end())
        return std::nullopt;
    return static_cast<std::size_t>(at - enumeration.parts.begin());
}

bool hasLiterals(const ListedType& type, const ListedRange& range) {
    return type.form == Form::ENUMERATION && positionOf(type, range.left) &&
           positionOf(type, range.right);
}

/// Whether the literals are the first and the last one.
bool isWhole(const ListedType& type, const ListedRange& range) {
    const std::size_t left = *positionOf(type, range.left);
    const std::size_t right = *positionOf(type, range.right);
    return std::min(left, right) == 0 && std::max(left, right) + 1 == type.parts.size();
}

bool isSameEnumeration(const ListedType& a, const ListedType& b) {
    return a.name == b.name &&
           std::equal(a.parts.begin(), a.parts.end(), b.parts.begin(), b.parts.end(),
                      [](const auto& x, const auto& y) { return x.name == y.name; });
}

/// An array type that was declared with its ranges, in one piece.
bool isArrayInOnePiece(const ListedType& type) {
    return type.form == Form::ARRAY_SUBTYPE && type.hasElement && type.name == type.use.name;
}

class GhdlTypeMaker {
public:
    GhdlTypeMaker(const GhdlListing& listing, const Input& input, VhdlTypes& types)
        : m_listing(listing), m_input(input), m_types(types), m_scopes(listing),
          m_inputNumber(types.addInput(input.linePlace(0))), m_first(types.size()),
          m_made(listing.types.size()), m_isReal(listing.types.size()) {}

    void make() {
        for (const ListedType& type : m_listing.types)
            m_types.add(begin(type, VhdlKind::UNKNOWN));
        for (std::size_t i = 0; i < m_made.size(); ++i)
            findKindOfNumbers(i);
        for (std::size_t i = 0; i < m_made.size(); ++i) {
            VhdlType type = typeOf(i);
            measure(type, m_made[i]);
            if (m_made[i].open > MOST_OPEN_RANGES)
                fail(i, "the type leaves more ranges open than any design does");
            m_types[idOf(i)] = type;
            declare(i);
        }
    }

private:
    /// How many ranges a type leaves open, of how many arrays in it.
    struct Made {
        std::size_t open = 0;
        std::size_t levels = 0;
        bool isUntold = false; ///< There may be more: a part is not told.
    };

    /// A range of positions and the enumeration that it is of, if that is told.
    struct Positions {
        VhdlRange range;
        std::uint32_t type = NONE;
    };

    std::uint32_t idOf(std::size_t type) const {
        return m_first + static_cast<std::uint32_t>(type);
    }

    /// The place among the listing's types of one that it declares.
    std::optional<std::size_t> numberOf(std::uint32_t id) const {
        if (id < m_first || id - m_first >= m_made.size())
            return std::nullopt;
        return id - m_first;
    }

    Made madeOf(std::uint32_t id) const {
        const std::optional<std::size_t> number = numberOf(id);
        return number ? m_made[*number] : Made();
    }

    VhdlType begin(const ListedType& type, VhdlKind kind) const {
        VhdlType result;
        result.kind = kind;
        result.name = m_types.pool().keep(type.name);
        result.input = m_inputNumber;
        result.place = type.line;
        return result;
    }

    VhdlType unknown(std::size_t i, const char* reason) const {
        VhdlType result = begin(m_listing.types[i], VhdlKind::UNKNOWN);
        result.reason = reason;
        return result;
    }

    void declare(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        // The types of universal numbers have no name in VHDL: no design can mean them.
        const bool isUniversal = type.name.rfind("UNIVERSAL_", 0) == 0;
        if (!isUniversal)
            m_types.declare(idOf(i), m_listing.scopes[type.scope].package);
    }

    /// Where a type's own bounds do not tell, those of a subtype can.
    void findKindOfNumbers(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        if (type.form == Form::SCALAR && isOfReals(type.use.range))
            m_isReal[i] = true;
        if (type.form == Form::SCALAR && !type.parts.empty())
            m_physical = m_physical == NONE || m_physicalName == type.name ? idOf(i) : SEVERAL;
        if (type.form == Form::SCALAR && !type.parts.empty())
            m_physicalName = type.name;
        if (type.form != Form::SCALAR_SUBTYPE || !isOfReals(type.use.range))
            return;
        const std::vector<std::size_t> bases = findNumberType(type.use.name, i);
        if (!bases.empty())
            m_isReal[bases[0]] = true;
    }

    std::vector<std::size_t> findNumberType(const std::string& name, std::size_t from) const {
        return m_scopes.find(name, from, [](const ListedType& type) {
            return type.form == Form::SCALAR || type.form == Form::UNSAID;
        });
    }

    VhdlType typeOf(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        switch (type.form) {
        case Form::ENUMERATION: return enumeration(type);
        case Form::SCALAR: return number(i);
        case Form::SCALAR_SUBTYPE: return scalarSubtype(type.use, i, type.name);
        case Form::ARRAY: return array(i);
        case Form::ARRAY_SUBTYPE:
            return isArrayInOnePiece(type) ? arrayInOnePiece(i) : compositeSubtype(i);
        case Form::OPEN_SUBTYPE:
        case Form::RECORD_SUBTYPE: return compositeSubtype(i);
        case Form::RECORD: return record(i);
        case Form::ALIAS: return alias(i);
        case Form::ACCESS: return reference(i, VhdlKind::ACCESS);
        case Form::FILE_TYPE: return reference(i, VhdlKind::FILE_TYPE);
        case Form::PROTECTED: return unknown(i, "there are no records of protected types");
        case Form::UNSAID: break;
        }
        return unknown(i, "the listing does not say what it is");
    }

    /// The names of literals or members, which have no value, or units.
    void addParts(const ListedType& type, VhdlType& result) const {
        std::vector<VhdlPart> parts;
        for (const ListedPart& part : type.parts)
            parts.push_back({m_types.pool().keep(part.name), part.value});
        result.parts = m_types.pool().keep(parts);
    }

    VhdlType enumeration(const ListedType& type) const {
        VhdlType result = begin(type, VhdlKind::ENUMERATION);
        addParts(type, result);
        return result;
    }

    VhdlType number(std::size_t i) const {
        const ListedType& type = m_listing.types[i];
        if (m_isReal[i]) {
            VhdlType real = begin(type, VhdlKind::REAL);
            real.realRange = realRangeOf(type.use.range, i);
            return real;
        }
        VhdlType result = begin(type, type.parts.empty() ? VhdlKind::INTEGER : VhdlKind::PHYSICAL);
        result.range = rangeOfNumbers(type.use.range, i);
        addParts(type, result);
        result.mayBeReal = type.parts.empty() &&
                           std::min(result.range.left, result.range.right) >= -MOST_AS_REAL &&
                           std::max(result.range.left, result.range.right) <= MOST_AS_REAL;
        return result;
    }

    [[noreturn]] void fail(std::size_t i, const std::string& reason) const {
        throw ImportError(m_input.linePlace(m_listing.types[i].line), reason);
    }

    template <typename Number> Number numberOf(const std::string& bound, std::size_t i) const {
        Number number = 0;
        const auto [end, error] =
            std::from_chars(bound.data(), bound.data() + bound.size(), number);
        if (error != std::errc() || end != bound.data() + bound.size())
            fail(i, "\"" + bound + "\" is not a bound of its type");
        return number;
    }

    VhdlRange rangeOfNumbers(const ListedRange& range, std::size_t i) const {
        return {false, range.isDownto, numberOf<std::int64_t>(range.left, i),
                numberOf<std::int64_t>(range.right, i)};
    }

    double realOf(const std::string& bound, std::size_t i) const {
        const bool isNegative = bound[0] == '-';
        if (bound.substr(isNegative ? 1 : 0) == LARGEST_REAL)
            return isNegative ? std::numeric_limits<double>::lowest()
                              : std::numeric_limits<double>::max();
        return numberOf<double>(bound, i);
    }

    const VhdlRealRange* realRangeOf(const ListedRange& range, std::size_t i) const {
        return m_types.pool().keepOne(
            VhdlRealRange{false, range.isDownto, realOf(range.left, i), realOf(range.right, i)});
    }

    /// The enumerations that literals can be of, told from one another as far as possible: most
    /// ranges are those of a whole type.
    std::vector<std::size_t> enumerationsOf(const ListedRange& range, std::size_t from) const {
        std::vector<std::size_t> found;
        for (const std::size_t type : m_scopes.findWithLiteral(range.left, from)) {
            const ListedType& candidate = m_listing.types[type];
            const bool isNew = std::none_of(found.begin(), found.end(), [&](std::size_t other) {
                return isSameEnumeration(candidate, m_listing.types[other]);
            });
            if (isNew && hasLiterals(candidate, range))
                found.push_back(type);
        }
        std::vector<std::size_t> whole;
        std::copy_if(found.begin(), found.end(), std::back_inserter(whole),
                     [&](std::size_t type) { return isWhole(m_listing.types[type], range); });
        return whole.size() == 1 ? whole : found;
    }

    static VhdlRange positionsIn(const ListedType& enumeration, const ListedRange& range) {
        return {false, range.isDownto,
                static_cast<std::int64_t>(*positionOf(enumeration, range.left)),
                static_cast<std::int64_t>(*positionOf(enumeration, range.right))};
    }

    /// A range of a dimension. None where it cannot be told.
    std::optional<Positions> positionsOf(const ListedRange& range, std::size_t from) const {
        if (!range.isSaid)
            return std::nullopt;
        if (hasWholeNumbers(range))
            return Positions{rangeOfNumbers(range, from), NONE};
        const std::vector<std::size_t> types = enumerationsOf(range, from);
        if (types.empty())
            return std::nullopt;
        const Positions first = {positionsIn(m_listing.types[types[0]], range), idOf(types[0])};
        const bool areSame = std::all_of(types.begin(), types.end(), [&](std::size_t type) {
            return positionsIn(m_listing.types[type], range) == first.range;
        });
        if (!areSame)
            return std::nullopt;
        return types.size() == 1 ? first : Positions{first.range, NONE};
    }

    /// The ranges of a constraint; none if one cannot be told.
    std::optional<std::vector<Positions>> positionsOf(const std::vector<ListedRange>& ranges,
                                                      std::size_t from) const {
        std::vector<Positions> result;
        for (const ListedRange& range : ranges) {
            const std::optional<Positions> positions = positionsOf(range, from);
            if (!positions)
                return std::nullopt;
            result.push_back(*positions);
        }
        return result;
    }

    VhdlUse useOfAny(const std::vector<std::size_t>& found, const std::string& name) {
        VhdlUse use;
        if (found.empty()) {
            use.type = unknownUse(name);
            return use;
        }
        use.type = idOf(found[0]);
        std::vector<std::uint32_t> alternatives;
        for (std::size_t i = 1; i < found.size(); ++i)
            alternatives.push_back(idOf(found[i]));
        use.alternatives = m_types.pool().keep(alternatives);
        return use;
    }

    std::uint32_t unknownUse(const std::string& name) {
        VhdlType type;
        type.name = m_types.pool().keep(name);
        return m_types.intern(type);
    }

    /// A subtype indication in the declaration `from`.
    VhdlUse useOf(const ListedUse& listed, std::size_t from) {
        if (listed.form == ListedUse::Form::UNSAID)
            return {unknownUse(""), {}, {}};
        if (listed.hasRange)
            return {m_types.intern(scalarSubtype(listed, from, "")), {}, {}};
        if (listed.isConstrained)
            return constrainedUse(listed, from);
        VhdlUse use = useOfAny(
            m_scopes.find(listed.name, from, [](const ListedType&) { return true; }), listed.name);
        use.ranges = openRanges(madeOf(use.type).open);
        return use;
    }

    VhdlUse constrainedUse(const ListedUse& listed, std::size_t from) {
        VhdlUse use = useOfAny(m_scopes.find(listed.name, from,
                                             [](const ListedType& type) {
                                                 return type.form == Form::ARRAY ||
                                                        type.form == Form::RECORD ||
                                                        isArrayInOnePiece(type);
                                             }),
                               listed.name);
        const Made base = madeOf(use.type);
        const bool isTold = numberOf(use.type) && !base.isUntold;
        if (isTold && base.open == 0)
            return use;
        const auto positions = positionsOf(listed.ranges, from, use.type);
        if (!positions || (isTold && positions->size() != base.open))
            return {unknownUse(""), {}, {}};
        use.ranges = m_types.pool().keep(*positions);
        return use;
    }

    /// The ranges of a constraint of a type, whose index types tell what literals are of.
    std::optional<std::vector<VhdlRange>> positionsOf(const std::vector<ListedRange>& ranges,
                                                      std::size_t from, std::uint32_t type) const {
        std::vector<VhdlRange> result;
        for (const ListedRange& range : ranges) {
            const std::size_t dimension = result.size();
            const ListedType* const index = indexOf(type, dimension);
            if (index != nullptr && hasLiterals(*index, range)) {
                result.push_back(positionsIn(*index, range));
                continue;
            }
            const std::optional<Positions> positions = positionsOf(range, from);
            if (!positions)
                return std::nullopt;
            result.push_back(positions->range);
        }
        return result;
    }

    /// The enumeration that a dimension of an array is over, if it is over one that was listed.
    const ListedType* indexOf(std::uint32_t array, std::size_t dimension) const {
        if (dimension >= m_types[array].uses.size())
            return nullptr;
        std::uint32_t index = m_types[array].uses[dimension].type;
        if (index == NONE)
            return nullptr;
        if (m_types[index].kind == VhdlKind::SUBTYPE)
            index = m_types[index].of.type;
        const std::optional<std::size_t> number = numberOf(index);
        return number ? &m_listing.types[*number] : nullptr;
    }

    /// A scalar type with a range, under a name or under none. Subtypes of reals are reals.
    VhdlType scalarSubtype(const ListedUse& listed, std::size_t from, const std::string& name) {
        VhdlType result = begin(m_listing.types[from], VhdlKind::SUBTYPE);
        result.name = m_types.pool().keep(name);
        std::vector<std::size_t> bases;
        if (listed.form == ListedUse::Form::REAL) {
            result.kind = VhdlKind::REAL;
        } else if (listed.form == ListedUse::Form::PHYSICAL) {
            result.of.type = m_physical < SEVERAL ? m_physical : unknownUse("");
        } else {
            bases = basesOf(listed, from);
            result.of = useOfAny(bases, listed.name);
        }
        if (!bases.empty() && m_isReal[bases[0]])
            result.kind = VhdlKind::REAL;
        if (result.kind == VhdlKind::REAL) {
            result.of = {};
            result.realRange = realRangeOf(listed.range, from);
        } else if (!bases.empty() && m_listing.types[bases[0]].form == Form::ENUMERATION) {
            result.range = positionsIn(m_listing.types[bases[0]], listed.range);
        } else if (hasWholeNumbers(listed.range)) {
            result.range = rangeOfNumbers(listed.range, from);
        }
        return result;
    }

    std::vector<std::size_t> basesOf(const ListedUse& listed, std::size_t from) const {
        if (isNumber(listed.range.left) && isNumber(listed.range.right))
            return findNumberType(listed.name, from);
        return m_scopes.find(listed.name, from, [&](const ListedType& type) {
            return hasLiterals(type, listed.range);
        });
    }

    VhdlType array(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        VhdlType result = begin(type, VhdlKind::ARRAY);
        result.of = useOf(type.use, i);
        std::vector<VhdlRange> ranges(type.indexes.size());
        ranges.insert(ranges.end(), result.of.ranges.begin(), result.of.ranges.end());
        result.of.ranges = m_types.pool().keep(ranges);
        std::vector<VhdlUse> indexes;
        for (const std::string& index : type.indexes)
            indexes.push_back(
                useOfAny(m_scopes.find(index, i, [](const ListedType&) { return true; }), index));
        result.uses = m_types.pool().keep(indexes);
        return result;
    }

    VhdlType arrayInOnePiece(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        const auto positions = positionsOf(type.use.ranges, i);
        if (!positions)
            return unknown(i, "the listing does not say what its ranges are");
        VhdlType result = begin(type, VhdlKind::ARRAY);
        result.of = useOf(type.element, i);
        // What follows the array's own ranges is for what its element leaves open.
        const std::size_t own = type.use.dimensions;
        if (positions->size() > own && positions->size() - own == madeOf(result.of.type).open)
            result.of.ranges = {};
        std::vector<VhdlRange> ranges;
        std::vector<VhdlUse> indexes;
        for (const Positions& dimension : *positions) {
            if (ranges.size() < own)
                indexes.push_back({dimension.type, {}, {}});
            if (ranges.size() < own || result.of.ranges.empty())
                ranges.push_back(dimension.range);
        }
        ranges.insert(ranges.end(), result.of.ranges.begin(), result.of.ranges.end());
        result.of.ranges = m_types.pool().keep(ranges);
        result.uses = m_types.pool().keep(indexes);
        return result;
    }

    VhdlType compositeSubtype(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        const bool isPart = type.form == Form::OPEN_SUBTYPE;
        VhdlType result = begin(type, VhdlKind::SUBTYPE);
        if (!isPart) {
            result.of = constrainedUse(type.use, i);
            return result;
        }
        const std::vector<std::size_t> bases =
            m_scopes.find(type.use.name, i, [](const ListedType& base) {
                return base.form == Form::ARRAY || base.form == Form::RECORD;
            });
        if (bases.empty())
            return unknown(i, "the listing does not say what it is");
        result.of = useOfAny(bases, type.use.name);
        const Made base = madeOf(result.of.type);
        result.of.ranges = openRanges(base.open);
        result.mayBePart = base.levels > 1 || base.isUntold;
        return result;
    }

    VhdlType record(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        VhdlType result = begin(type, VhdlKind::RECORD);
        addParts(type, result);
        std::vector<VhdlUse> uses;
        for (const ListedPart& element : type.parts)
            uses.push_back(useOf(element.use, i));
        result.uses = m_types.pool().keep(uses);
        return result;
    }

    /// As the releases print it that have no word for aliases: as a subtype of the type behind it.
    VhdlType alias(std::size_t i) {
        const ListedType& type = m_listing.types[i];
        VhdlType result = begin(type, VhdlKind::SUBTYPE);
        result.of = useOf(type.use, i);
        const VhdlType& target = m_types[result.of.type];
        switch (target.kind) {
        case VhdlKind::SUBTYPE:
            result.of = target.of;
            result.range = target.range;
            result.mayBePart = target.mayBePart;
            break;
        case VhdlKind::REAL:
            result.kind = VhdlKind::REAL;
            result.realRange = target.realRange;
            result.of = {};
            break;
        case VhdlKind::ENUMERATION:
            result.range = {false, false, 0, static_cast<std::int64_t>(target.parts.size()) - 1};
            break;
        case VhdlKind::INTEGER:
        case VhdlKind::PHYSICAL: result.range = target.range; break;
        default: break;
        }
        return result;
    }

    VhdlType reference(std::size_t i, VhdlKind kind) {
        const ListedType& type = m_listing.types[i];
        VhdlType result = begin(type, kind);
        result.of = useOf(type.use, i);
        if (type.use.isConstrained && !result.of.ranges.empty()) {
            VhdlType designated = begin(type, VhdlKind::SUBTYPE);
            designated.name = {};
            designated.of = result.of;
            result.of = {m_types.intern(designated), {}, {}};
        }
        result.of.ranges = {};
        return result;
    }

    void measure(const VhdlType& type, Made& made) const {
        const auto add = [&](const VhdlUse& use, std::size_t own) {
            const auto nested = use.ranges.begin() + static_cast<std::ptrdiff_t>(own);
            const auto isOpen = [](const VhdlRange& range) { return range.isOpen; };
            const auto open = std::count_if(use.ranges.begin(), nested, isOpen);
            const auto openNested = std::count_if(nested, use.ranges.end(), isOpen);
            made.open += static_cast<std::size_t>(open + openNested);
            made.levels += (open > 0 ? 1 : 0) + (openNested > 0 ? madeOf(use.type).levels : 0);
            made.isUntold = made.isUntold || madeOf(use.type).isUntold ||
                            m_types[use.type].kind == VhdlKind::UNKNOWN;
        };
        if (type.kind == VhdlKind::ARRAY || type.kind == VhdlKind::SUBTYPE)
            add(type.of, type.uses.size());
        if (type.kind != VhdlKind::RECORD)
            return;
        for (const VhdlUse& member : type.uses)
            add(member, 0);
    }

    /// There is more than one physical type.
    static constexpr std::uint32_t SEVERAL = NONE - 1;

    const GhdlListing& m_listing;
    const Input& m_input;
    VhdlTypes& m_types;
    GhdlScopes m_scopes;
    std::uint32_t m_inputNumber;
    std::uint32_t m_first; ///< The id of the first declaration; the others follow.
    std::vector<Made> m_made;
    std::vector<bool> m_isReal; ///< Of each declaration of a number type.
    std::uint32_t m_physical = NONE;
    std::string m_physicalName;
};

} // namespace

void addGhdlTypes(const GhdlListing& listing, const Input& input, VhdlTypes& types) {
    GhdlTypeMaker(listing, input, types).make();
}

} // namespace Import
