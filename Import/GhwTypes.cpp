#include "Import/GhwTypes.h"

#include "Import/ImportError.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Import {

namespace {

bool isNumber(GhwKind kind) { return kind >= GhwKind::INTEGER && kind <= GhwKind::LONG_PHYSICAL; }

bool isEnumeration(GhwKind kind) {
    return kind >= GhwKind::ENUM_OF_TWO && kind <= GhwKind::ENUM_OF_WORDS;
}

VhdlKind numberKind(GhwKind kind) {
    if (kind == GhwKind::REAL)
        return VhdlKind::REAL;
    return kind >= GhwKind::PHYSICAL ? VhdlKind::PHYSICAL : VhdlKind::INTEGER;
}

/// What becomes of one type of the file.
struct Made {
    std::uint32_t type = VhdlType::NONE; ///< None of composite subtypes without a name.
    std::uint32_t open = 0;              ///< How many ranges it leaves open,
    std::uint32_t levels = 0;            ///< of how many arrays in it.
    std::uint32_t used = VhdlType::NONE; ///< What another type uses that uses it,
    std::span<const VhdlRange> ranges;   ///< and with which ranges.

    VhdlUse use() const { return {used, {}, ranges}; }
    void setUse(std::uint32_t what, std::span<const VhdlRange> with) {
        used = what;
        ranges = with;
    }
};

/// GHDL splits the declaration of a number type, or of an array type with ranges, into a base and
/// its first subtype, of the same name. One type is made of the two again.
class GhwTypeMaker {
public:
    GhwTypeMaker(const GhwFile& file, const Input& input, VhdlTypes& types)
        : m_file(file), m_input(input), m_types(types), m_made(file.types.size()),
          m_firstSubtypes(file.types.size()), m_users(file.strings.size()),
          m_inputNumber(types.addInput(input.offsetPlace(0))), m_isFirstFile(types.size() == 0) {
        m_types.internAdded();
        m_types.reserve(m_types.size() + file.types.size());
        for (const GhwType& type : m_file.types)
            ++m_users[type.name];
    }

    void make() {
        for (std::uint32_t number = 1; number < m_file.types.size(); ++number)
            findFirstSubtype(number);
        for (std::uint32_t number = 1; number < m_file.types.size(); ++number)
            make(number);
        for (std::uint32_t number = 1; number < m_file.types.size(); ++number)
            declare(number);
    }

private:
    [[noreturn]] void fail(const GhwType& type, const std::string& reason) const {
        throw ImportError(m_input.offsetPlace(type.offset), reason);
    }

    void findFirstSubtype(std::uint32_t number) {
        const GhwType& type = m_file.types[number];
        if (type.kind < GhwKind::SCALAR_SUBTYPE || type.name == 0)
            return;
        const GhwType& base = m_file.types[type.base];
        std::uint32_t& first = m_firstSubtypes[type.base];
        const bool areScalar = isNumber(base.kind) && type.kind == GhwKind::SCALAR_SUBTYPE;
        const bool areArrays =
            base.kind == GhwKind::ARRAY &&
            (type.kind == GhwKind::ARRAY_SUBTYPE || type.kind == GhwKind::OPEN_ARRAY_SUBTYPE);
        if (base.name == type.name && first == 0 && (areScalar || areArrays))
            first = number;
    }

    void make(std::uint32_t number) {
        const GhwType& type = m_file.types[number];
        Made made;
        switch (type.kind) {
        case GhwKind::ARRAY: made = makeArray(type); break;
        case GhwKind::RECORD: made = makeRecord(type); break;
        case GhwKind::SCALAR_SUBTYPE: made.type = scalarSubtype(number); break;
        case GhwKind::ARRAY_SUBTYPE: made = makeSubtype(number, GhwKind::ARRAY); break;
        case GhwKind::RECORD_SUBTYPE: made = makeSubtype(number, GhwKind::RECORD); break;
        case GhwKind::OPEN_ARRAY_SUBTYPE: made = makeOpenSubtype(number, GhwKind::ARRAY); break;
        case GhwKind::OPEN_RECORD_SUBTYPE: made = makeOpenSubtype(number, GhwKind::RECORD); break;
        default:
            made.type = isEnumeration(type.kind) ? enumeration(type) : numberType(number);
            break;
        }
        if (made.type != VhdlType::NONE && made.ranges.empty())
            made.setUse(made.type, openRanges(made.open));
        m_made[number] = made;
    }

    VhdlType begin(const GhwType& type, VhdlKind kind) const {
        VhdlType result;
        result.kind = kind;
        result.name = m_file.strings[type.name];
        result.input = m_inputNumber;
        result.place = type.offset;
        return result;
    }

    /// The type that has been made of one of the file, or the equal one that is there. A name that
    /// no other type has is enough to tell; most types have one.
    std::uint32_t put(const GhwType& type, const VhdlType& result) {
        const bool isOnlyOne = m_isFirstFile && type.name != 0 && m_users[type.name] == 1;
        return isOnlyOne ? m_types.add(result) : m_types.intern(result);
    }

    void addParts(const GhwType& type, VhdlType& result) {
        m_parts.clear();
        for (const GhwPart& part : m_file.partsOf(type))
            m_parts.push_back({m_file.strings[part.name], part.value});
        result.parts = m_types.pool().keep(m_parts);
    }

    std::uint32_t enumeration(const GhwType& type) {
        if (type.items.count == 0)
            fail(type, "an enumeration without literals");
        VhdlType result = begin(type, VhdlKind::ENUMERATION);
        addParts(type, result);
        return put(type, result);
    }

    std::uint32_t numberType(std::uint32_t number) {
        const GhwType& type = m_file.types[number];
        VhdlType result = begin(type, numberKind(type.kind));
        addParts(type, result);
        if (m_firstSubtypes[number] != 0)
            setRange(m_file.types[m_firstSubtypes[number]], result);
        return put(type, result);
    }

    /// Takes the range of a scalar subtype.
    void setRange(const GhwType& subtype, VhdlType& result) {
        const GhwType& base = m_file.types[subtype.base];
        const GhwRange& range = m_file.rangesOf(subtype).front();
        if (range.isReal != (base.kind == GhwKind::REAL))
            fail(subtype, "the range of a subtype is not of its base's kind");
        if (range.isReal)
            result.realRange = m_types.pool().keepOne(
                VhdlRealRange{true, range.isDownto, range.realLeft, range.realRight});
        else
            result.range = {false, range.isDownto, range.left, range.right};
        if (isEnumeration(base.kind) &&
            std::max(range.left, range.right) >= static_cast<std::int64_t>(base.items.count))
            fail(subtype, "the range of a subtype has more literals than its base");
    }

    std::uint32_t scalarSubtype(std::uint32_t number) {
        const GhwType& type = m_file.types[number];
        const GhwKind baseKind = m_file.types[type.base].kind;
        if (!isNumber(baseKind) && !isEnumeration(baseKind))
            fail(type, "the base of a scalar subtype is not a scalar type");
        if (m_firstSubtypes[type.base] == number)
            return m_made[type.base].type;
        // A record of a real type has its range, one of a typedef none of reals.
        const bool isReal = baseKind == GhwKind::REAL;
        VhdlType result = begin(type, isReal ? VhdlKind::REAL : VhdlKind::SUBTYPE);
        if (!isReal)
            result.of.type = m_made[type.base].type;
        setRange(type, result);
        return put(type, result);
    }

    /// The dimensions of an array, which are open, in front of what its element leaves open.
    std::span<const VhdlRange> withOpen(std::uint32_t dimensions,
                                        std::span<const VhdlRange> ofElement) {
        if (ofElement.empty())
            return openRanges(dimensions);
        std::vector<VhdlRange> ranges(dimensions);
        ranges.insert(ranges.end(), ofElement.begin(), ofElement.end());
        return m_types.pool().keep(ranges);
    }

    Made makeArray(const GhwType& type) {
        VhdlType result = begin(type, VhdlKind::ARRAY);
        const Made& element = m_made[type.base];
        result.of.type = element.used;
        result.of.ranges = withOpen(type.items.count, element.ranges);
        m_uses.clear();
        for (const std::uint32_t index : m_file.indexesOf(type)) {
            const GhwKind kind = m_file.types[index].kind;
            if (kind != GhwKind::SCALAR_SUBTYPE && !isNumber(kind) && !isEnumeration(kind))
                fail(type, "an index of an array is not of a scalar type");
            m_uses.push_back({m_made[index].type, {}, {}});
        }
        result.uses = m_types.pool().keep(m_uses);
        Made made;
        made.open = type.items.count + element.open;
        made.levels = 1 + element.levels;
        made.type = put(type, result);
        return made;
    }

    Made makeRecord(const GhwType& type) {
        VhdlType result = begin(type, VhdlKind::RECORD);
        Made made;
        addParts(type, result);
        m_uses.clear();
        for (const GhwPart& part : m_file.partsOf(type)) {
            const Made& member = m_made[part.type];
            m_uses.push_back(member.use());
            made.open += member.open;
            made.levels += member.levels;
        }
        result.uses = m_types.pool().keep(m_uses);
        made.type = put(type, result);
        return made;
    }

    /// The type that a composite subtype is of.
    std::uint32_t baseOf(const GhwType& subtype, GhwKind kind) const {
        std::uint32_t base = subtype.base;
        while (m_file.types[base].kind >= GhwKind::ARRAY_SUBTYPE)
            base = m_file.types[base].base;
        if (m_file.types[base].kind != kind)
            fail(subtype, "a subtype and its base do not fit together");
        return base;
    }

    std::vector<VhdlRange> rangesOf(const GhwType& subtype) const {
        std::vector<VhdlRange> ranges;
        for (const GhwRange& range : m_file.rangesOf(subtype)) {
            if (range.isReal)
                fail(subtype, "a dimension of an array has a range of reals");
            ranges.push_back({false, range.isDownto, range.left, range.right});
        }
        return ranges;
    }

    /// An array that was declared with its ranges, which its first subtype has.
    std::uint32_t arrayInOnePiece(const GhwType& subtype, std::uint32_t base) {
        VhdlType array = m_types[m_made[base].type];
        array.input = m_inputNumber;
        array.place = subtype.offset;
        const std::vector<VhdlRange> ranges = rangesOf(subtype);
        std::vector<VhdlRange> all(array.of.ranges.begin(), array.of.ranges.end());
        std::copy(ranges.begin(), ranges.end(), all.begin());
        array.of.ranges = m_types.pool().keep(all);
        return put(subtype, array);
    }

    /// Whether the subtype is of an array that was declared with these ranges.
    bool addsNothing(const GhwType& subtype, std::uint32_t base) const {
        const GhwType& first = m_file.types[m_firstSubtypes[base]];
        return m_firstSubtypes[base] != 0 && first.kind == GhwKind::ARRAY_SUBTYPE &&
               rangesOf(first) == rangesOf(subtype);
    }

    Made makeSubtype(std::uint32_t number, GhwKind kind) {
        const GhwType& type = m_file.types[number];
        const std::uint32_t base = baseOf(type, kind);
        const bool isFirst = m_file.types[type.base].name == type.name && type.name != 0;
        const bool isWhole = kind == GhwKind::ARRAY && (isFirst || addsNothing(type, base));
        Made made;
        if (isWhole)
            made.type = arrayInOnePiece(type, base);
        if (isWhole && (isFirst || type.name == 0))
            return made;
        if (isWhole)
            made.setUse(made.type, {});
        else
            made.setUse(m_made[base].type, m_types.pool().keep(rangesOf(type)));
        VhdlType result = begin(type, VhdlKind::SUBTYPE);
        result.of = made.use();
        made.type = put(type, result);
        if (type.name != 0)
            made.setUse(made.type, {});
        return made;
    }

    Made makeOpenSubtype(std::uint32_t number, GhwKind kind) {
        const GhwType& type = m_file.types[number];
        Made made = m_made[baseOf(type, kind)];
        if (m_file.types[type.base].name == type.name)
            return made;
        VhdlType result = begin(type, VhdlKind::SUBTYPE);
        result.of = made.use();
        result.mayBePart = made.levels > 1;
        made.type = put(type, result);
        made.setUse(made.type, {});
        return made;
    }

    void declare(std::uint32_t number) {
        const bool isHalf = m_firstSubtypes[number] != 0;
        if (m_made[number].type != VhdlType::NONE && !isHalf)
            m_types.declare(m_made[number].type, "");
    }

    const GhwFile& m_file;
    const Input& m_input;
    VhdlTypes& m_types;
    std::vector<VhdlPart> m_parts;              ///< Of the type that is being made,
    std::vector<VhdlUse> m_uses;                ///< likewise.
    std::vector<Made> m_made;                   ///< Of each type.
    std::vector<std::uint32_t> m_firstSubtypes; ///< Of each base type; 0 where there is none.
    std::vector<std::uint32_t> m_users;         ///< How many types have each name.
    std::uint32_t m_inputNumber;
    bool m_isFirstFile;
};

} // namespace

void addGhwTypes(GhwFile file, const Input& input, VhdlTypes& types) {
    GhwTypeMaker(file, input, types).make();
    types.pool().take(std::move(file.texts));
}

} // namespace Import
