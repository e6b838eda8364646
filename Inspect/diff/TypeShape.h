#pragma once

#include "Inspect/diff/FieldWalk.h"
#include "Inspect/model/TypeReferences.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/RTType.h"

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace Inspect {

/// The value of a field, as it stands in the type.
using FieldValue =
    std::variant<Bits, SVTypeId, RawValue, RTTI::FullConstraints,
                 const std::vector<RTTI::FullConstraints>*, unsigned int, int, long long, double,
                 RTTI::ValueEncoding, RTTI::EnumKind, RTTI::ArrayKind, RTTI::RecordKind>;

/// A field's value in words.
std::string fieldText(const FieldValue& value, RangeLists lists);

/// Two different values in words that differ too: of lists of ranges that look the same once they
/// are shortened, what follows their common beginning.
std::pair<std::string, std::string> differentTexts(const FieldValue& a, const FieldValue& b,
                                                   RangeLists lists);

bool isSameValue(const FieldValue& a, const FieldValue& b);

/// A field of a type, or of one of its parts, that is no reference.
struct TypeField {
    const char* name; ///< As the JSON form has it.
    FieldValue value;
};

/// The fields of a type as lists. The type must outlive it.
struct TypeShape {
    /// A literal, a unit or a member.
    struct Part {
        const char* field; ///< The list that it is an entry of.
        std::string_view name;
        std::size_t fieldsBegin; ///< Its fields in `fields` end where those of the next part begin.
        unsigned int linksBegin; ///< Likewise among the type's references.
    };

    explicit TypeShape(const RTTI::RTBaseType& type);

    std::vector<std::string_view> partNames() const;
    std::size_t fieldsEnd(std::size_t part) const;
    unsigned int linksEnd(std::size_t part) const;

    /// The type's own fields come first, up to those of the first part.
    std::size_t ownFieldsEnd() const {
        return parts.empty() ? fields.size() : parts[0].fieldsBegin;
    }
    unsigned int ownLinksEnd() const { return parts.empty() ? linkCount : parts[0].linksBegin; }

    std::vector<TypeField> fields;
    std::vector<Part> parts;
    unsigned int linkCount = 0;
};

/// Where a type's reference stands, by its position among the type's references.
struct LinkPlace {
    LinkRole role;
    unsigned int position;       ///< Of the member or the dimension; else 0.
    std::string_view memberName; ///< Empty for what is no member.
};

LinkPlace placeOf(const RTTI::RTBaseType& type, unsigned int link);

} // namespace Inspect
