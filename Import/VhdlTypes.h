#pragma once

#include "Import/Place.h"
#include "Import/Pool.h"
#include "TypeFile/KeyNumbers.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Import {

/// What a VHDL type is. UNKNOWN is one of which the input says no more than the name.
enum class VhdlKind : std::uint8_t {
    UNKNOWN,
    ENUMERATION,
    INTEGER,
    REAL,
    PHYSICAL,
    ARRAY,
    RECORD,
    ACCESS,
    FILE_TYPE,
    SUBTYPE,
};

/// Types that leave more ranges open, those of their elements and members included, are refused:
/// records of records can ask for any number of them in few bytes.
inline constexpr std::size_t MOST_OPEN_RANGES = 4096;

/// A range of whole numbers or positions, or none yet.
struct VhdlRange {
    bool isOpen = true;
    bool isDownto = false;
    std::int64_t left = 0;
    std::int64_t right = 0;

    bool operator==(const VhdlRange&) const = default;
};

/// A range of reals.
struct VhdlRealRange {
    bool isExact = true; ///< Else both bounds have six digits.
    bool isDownto = false;
    double left = 0;
    double right = 0;
};

/// A type where another one uses it. Lists, names and ranges of reals here and below belong to the
/// pool of their VhdlTypes.
struct VhdlUse {
    std::uint32_t type = 0;

    /// Other types that may be meant, because they have the same name.
    PoolList<std::uint32_t> alternatives;

    /// What is said about the ranges that the type leaves open, in their order: its own dimensions,
    /// then those of its element; those of a record's members. Empty where it leaves none open.
    std::span<const VhdlRange> ranges;
};

/// A literal, a unit or a member.
struct VhdlPart {
    PoolText name;
    std::int64_t value = 0; ///< Of a unit: in primary units.
};

/// A type as VHDL declares it. Names are Latin-1, in lower case but for literals of one character
/// and extended identifiers.
struct VhdlType {
    VhdlKind kind = VhdlKind::UNKNOWN;
    bool mayBeReal = false;  ///< An integer type by the look of its bounds alone.
    bool mayBePart = false;  ///< A subtype that may have ranges which the input does not say.
    std::uint32_t input = 0; ///< The number of the one that has it,
    std::uint64_t place = 0; ///< and the line or byte there.
    PoolText name;           ///< Empty where the source gives it none.

    /// The element of an array, with the ranges of the array's own dimensions in front; the base of
    /// a subtype; what an access or file type is of.
    VhdlUse of;

    /// The indexes of an array, NONE where the input does not say, or what the members of a record
    /// are of.
    PoolList<VhdlUse> uses;
    PoolList<VhdlPart> parts;
    VhdlRange range; ///< Of an integer or physical type, or of a scalar subtype; may be unknown.
    const VhdlRealRange* realRange = nullptr; ///< Null where it is not known.
    const char* reason = "";                  ///< Of one that is not known: why, for a note.

    static constexpr std::uint32_t NONE = 0xFFFFFFFF;
};

/// The bounds that records have room for.
/// @{
inline constexpr std::int64_t LEAST_BOUND = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int64_t LARGEST_BOUND = std::numeric_limits<std::int32_t>::max();
/// @}

/// Whether two lists of ranges are the same.
inline bool areEqual(std::span<const VhdlRange> a, std::span<const VhdlRange> b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end());
}

/// Ranges that are open, to be looked at for as long as the program runs. At most as many as a type
/// may have.
std::span<const VhdlRange> openRanges(std::size_t count);

/// Whether a type is what every implementation of VHDL has, so that nothing about it can be lost.
bool isPredefined(const VhdlType& type);

/// "type t", or words for a type without a name.
std::string labelOf(const VhdlType& type);

/// Calls `take(use)` for each type that another one uses, in the order of a record's fields.
template <typename Take> void forEachUse(const VhdlType& type, Take take) {
    if (type.kind >= VhdlKind::ARRAY && type.kind != VhdlKind::RECORD)
        take(type.of);
    for (const VhdlUse& use : type.uses) {
        if (use.type != VhdlType::NONE)
            take(use);
    }
}

/// A declaration: of which type, and where.
struct VhdlDeclaration {
    std::uint32_t type = 0;
    std::uint32_t package = 0; ///< Which of the packages.
};

/// The types of a design, and which of them were declared.
class VhdlTypes {
public:
    VhdlTypes() = default;
    VhdlTypes(VhdlTypes&&) = default;
    VhdlTypes& operator=(VhdlTypes&&) = delete;

    /// What the lists and names of the types belong to.
    Pool& pool() { return m_pool; }

    /// Makes room for so many types.
    void reserve(std::size_t count) {
        m_types.reserve(count);
        m_declarations.reserve(count);
    }

    /// Adds a type, or finds the equal one among those that were interned. The types that it refers
    /// to have to be there.
    std::uint32_t intern(const VhdlType& type);

    /// Adds a type that may refer to others which are still to come, or that none so far can equal.
    std::uint32_t add(const VhdlType& type);

    /// Makes types be found that were added. None of them equals another one.
    void internAdded();

    VhdlType& operator[](std::uint32_t id) { return m_types[id]; }
    const VhdlType& operator[](std::uint32_t id) const { return m_types[id]; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(m_types.size()); }

    /// Adds an input by any place in it. The answer is its number.
    std::uint32_t addInput(const Place& place) {
        m_inputs.push_back(place);
        return static_cast<std::uint32_t>(m_inputs.size()) - 1;
    }
    Place placeOf(const VhdlType& type) const { return m_inputs[type.input].at(type.place); }

    /// The package is empty outside one.
    void declare(std::uint32_t type, std::string_view package);
    const std::vector<VhdlDeclaration>& declarations() const { return m_declarations; }
    std::string_view packageOf(const VhdlDeclaration& declaration) const {
        return m_packages[declaration.package];
    }

    /// Takes over all that others have but the types: what these are made of, their inputs, which
    /// come after its own, and their declarations, which come first, of the types that now have the
    /// ids in `newIds`. The answer is the new number of the first input.
    std::uint32_t takeRest(VhdlTypes& others, const std::vector<std::uint32_t>& newIds);

private:
    unsigned int keyNumberOf(const VhdlType& type);

    Pool m_pool;
    std::vector<VhdlType> m_types;
    std::vector<Place> m_inputs;
    std::vector<VhdlDeclaration> m_declarations;
    std::vector<PoolText> m_packages;
    TypeFile::KeyNumbers m_keys{0};      ///< Of those that were interned.
    std::vector<std::uint32_t> m_ofKeys; ///< The type of each key.
    std::string m_key;                   ///< Of the type that is being interned.
};

} // namespace Import
