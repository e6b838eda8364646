#pragma once

#include "Inspect/model/TypeTable.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// Why values of a type cannot be decoded, in words.
class UndecodableType : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Says what is in a value of a packed type or of a VHDL enumeration.
class ValueDecoder {
public:
    /// The largest number of values in a type, each element of an array of structs or enumerations
    /// counted.
    static constexpr std::size_t MOST_FIELDS = 1'000'000;

    /// The largest number of bits in a value.
    static constexpr std::uint64_t MOST_BITS = std::uint64_t{1} << 24;

    /// Throws UndecodableType. The types need not outlive this object.
    ValueDecoder(const TypeTable& types, unsigned int id);

    /// `field=value` for every value in it, with spaces between them: `st=RUN inner.count=0x3`,
    /// `lanes[1].on=1`; the value alone if the type is neither a struct nor a union nor an array of
    /// these or of enumerations. An enumeration gives the literal. Other values are hexadecimal, or
    /// binary if X and Z do not fill a digit. All members of a union are given.
    ///
    /// The number of digits shows whether `line` is binary or hexadecimal; after 0x or 0b, leading
    /// zeros may be left out. Any other line is returned unchanged.
    std::string decode(std::string_view line) const;

private:
    using Literals = std::unordered_map<std::string, std::string>; ///< Names by bits.

    struct Field {
        std::string name; ///< Empty for the whole value.
        std::uint64_t offset;
        std::uint64_t width;
        const Literals* literals; ///< Null if it is no enumeration.
    };

    /// A part of the type that is not yet divided.
    struct Pending {
        std::string name;
        std::uint64_t offset;
        unsigned int typeId;
        const RTTI::RTBaseType* type;
    };

    const Literals* literalsOf(const TypeTable& types, const RTTI::RTBaseType& type);
    void divide(const TypeTable& types, Pending part);
    void addMembers(const TypeTable& types, const RTTI::RTRecordType& record, const Pending& part);
    void checkCount() const;

    std::uint64_t m_width = 0;
    std::vector<Field> m_fields;
    std::vector<Pending> m_pending; ///< The next one last.
    std::size_t m_emptyParts = 0;   ///< Unions without any value but their tag.
    std::unordered_map<const RTTI::RTBaseType*, Literals> m_literals;
};

} // namespace Inspect
