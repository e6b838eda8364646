#pragma once

#include "RTTI/TypeFileFormat.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/Finding.h"
#include "TypeFile/NamedValues.h"

#include <cstddef>
#include <span>

// The bytes of a type file, field by field: the one statement of them outside the loader. What
// checks records, shows them or writes about them is made from these tables.

namespace TypeFile {

/// How the bytes of a field are read, and what they stand for.
enum class FieldForm : unsigned char {
    RECORD_SIZE, ///< 4 bytes, signed: where the record ends.
    KIND,        ///< 4 bytes: which layout the body has.
    NAME,        ///< Bytes up to a zero byte.
    FLAGS,       ///< 4 bytes.
    NUMBER,      ///< 4 bytes, signed.
    UNSIGNED,    ///< 4 bytes.
    OFFSET,      ///< 4 bytes, unsigned: a place in the storage.
    NAMED,       ///< 4 bytes: one of `names`.
    FLAVOUR,     ///< 4 bytes, signed: 0 to `last`; what is above is dropped.
    TYPE_ID,     ///< 4 bytes: refers to a type, as `link` says.
    SV_TYPE_ID,  ///< 4 bytes, signed.
    BOOLEAN,     ///< 4 bytes.
    LONG,        ///< 8 bytes, signed.
    REAL,        ///< 8 bytes, a double.
    DIRECTION,   ///< 8 bytes, a double that is truncated to a 32-bit number.
    RANGE,       ///< 12 bytes: left bound, right bound, direction.
    VERSION,     ///< 32 bytes: text up to a zero byte.
    COUNT,       ///< 4 bytes, signed: how many entries the list that follows has.
    VALUE_SIZE,  ///< 4 bytes, signed: how many bytes each VALUE has.
    VALUE,       ///< As many bytes as VALUE_SIZE said.
    RANGES,      ///< 4 bytes, unsigned, and so many ranges.
    LIST,        ///< The entries of a list: so often what stands up to END_OF_LIST.
    END_OF_LIST
};

/// What a reference to a type is to those that follow it: flags.
namespace Link {

inline constexpr unsigned char NAMED = 0;       ///< Nobody follows it.
inline constexpr unsigned char LINKED = 1;      ///< It must lead to an object.
inline constexpr unsigned char AWAITED = 2 | 1; ///< And that one is read before this one is there.
inline constexpr unsigned char WALKED = 4 | 1;  ///< The constraint walk goes through it.
inline constexpr unsigned char PART = AWAITED | WALKED;
inline constexpr unsigned char BASE_CLASS = PART | 8; ///< PART, and it must lead to a class.
inline constexpr unsigned char OR_NONE = 16;          ///< NO_TYPE_ID says that there is none.

/// Whether a link has all of some flags.
constexpr bool has(unsigned char link, unsigned char flags) { return (link & flags) == flags; }

} // namespace Link

/// One field of a record, or one of the brackets around the fields of a list's entry.
struct FieldLayout {
    const char* name; ///< One of the names in `Field`; empty where it is a list's entry itself.
    FieldForm form;
    unsigned char link = Link::NAMED;   ///< Of a TYPE_ID.
    int missing = 0;                    ///< What the loader takes where the field is not there.
    const NamedValues* names = nullptr; ///< Of a NAMED.
    int last = 0;                       ///< Of a FLAVOUR.
    FindingCode code{};                 ///< What is found where `names` or `last` do not have it.

    constexpr FieldLayout(const char* fieldName, FieldForm fieldForm, int ifMissing = 0)
        : name(fieldName), form(fieldForm), missing(ifMissing) {}

    static constexpr FieldLayout typeId(const char* name, unsigned char link) {
        FieldLayout field(name, FieldForm::TYPE_ID);
        field.link = link;
        return field;
    }
    static constexpr FieldLayout named(const char* name, const NamedValues& names,
                                       FindingCode code) {
        FieldLayout field(name, FieldForm::NAMED);
        field.names = &names;
        field.code = code;
        return field;
    }
    static constexpr FieldLayout flavour(int last) {
        FieldLayout field(Field::FLAVOUR, FieldForm::FLAVOUR);
        field.last = last;
        field.code = FindingCode::FLAVOUR_UNKNOWN;
        return field;
    }
};

namespace Layout {

using enum FieldForm;

inline constexpr FieldLayout HEADER[] = {{Field::VERSION, VERSION},
                                         {Field::TYPE_COUNT, UNSIGNED},
                                         {Field::ADDRESS_TABLE_OFFSET, OFFSET}};

/// What all records begin with.
inline constexpr FieldLayout HEAD[] = {{Field::RECORD_SIZE, RECORD_SIZE},
                                       {Field::KIND, KIND},
                                       {Field::NAME, NAME},
                                       {Field::FLAGS, FLAGS}};

/// The fields of a RANGE where it stands alone, and those of RANGES.
inline constexpr FieldLayout RANGE_PARTS[] = {
    {Field::SI, NUMBER}, {Field::EI, NUMBER}, {Field::DIR, NUMBER}};
inline constexpr FieldLayout RANGE_COUNT{Field::CONSTRAINT_COUNT, COUNT};
inline constexpr FieldLayout RANGE_IN_LIST{Field::CONSTRAINTS, RANGE};

inline constexpr FieldLayout END{"", END_OF_LIST};
inline constexpr FieldLayout CONSTRAINTS{Field::CONSTRAINTS, RANGES};
inline constexpr FieldLayout OWN_SV_TYPE_ID{Field::SV_TYPE_ID, SV_TYPE_ID};
inline constexpr FieldLayout LAST_SV_TYPE_ID{Field::SV_TYPE_ID, SV_TYPE_ID,
                                             RTTI::TypeFileFormat::NO_SV_TYPE_ID};
inline constexpr FieldLayout MEMBER_COUNT{Field::MEMBER_COUNT, COUNT};
inline constexpr FieldLayout MEMBERS{Field::MEMBERS, LIST};
inline constexpr FieldLayout MEMBER_NAME{Field::NAME, NAME};
inline constexpr FieldLayout MEMBER_TYPE = FieldLayout::typeId(Field::TYPE, Link::WALKED);

inline constexpr FieldLayout SEQ_ENUM[] = {
    FieldLayout::named(Field::ENCODING, valueEncodings, FindingCode::ENCODING_UNKNOWN),
    FieldLayout::named(Field::ENUM_KIND, enumKinds, FindingCode::ENUM_KIND_UNKNOWN),
    {Field::LITERAL_COUNT, COUNT},
    {Field::LITERALS, LIST},
    {"", NAME},
    END,
    {Field::VALUE_SIZE, VALUE_SIZE, 1}};

inline constexpr FieldLayout DISCRETE_ENUM[] = {FieldLayout::typeId(Field::BASE_TYPE, Link::PART),
                                                {Field::LITERAL_COUNT, COUNT},
                                                {Field::VALUE_SIZE, VALUE_SIZE},
                                                {Field::LITERALS, LIST},
                                                {Field::NAME, NAME},
                                                {Field::VALUE, VALUE},
                                                END,
                                                CONSTRAINTS};

inline constexpr FieldLayout INT[] = {{Field::RANGE, RANGE}};

inline constexpr FieldLayout FLOAT[] = {FieldLayout::flavour(RTTI::TypeFileFormat::LAST_FLOAT_KIND),
                                        {Field::LEFT, REAL},
                                        {Field::RIGHT, REAL},
                                        {Field::DIRECTION, DIRECTION}};

inline constexpr FieldLayout TYPEDEF[] = {FieldLayout::typeId(Field::DATA_TYPE, Link::PART),
                                          CONSTRAINTS};

inline constexpr FieldLayout ACCESS[] = {FieldLayout::typeId(Field::REF_TYPE, Link::LINKED),
                                         {Field::ALIGNMENT, UNSIGNED},
                                         {Field::VALUE_SIZE, UNSIGNED}};

inline constexpr FieldLayout FILE_TYPE[] = {FieldLayout::typeId(Field::REF_TYPE, Link::AWAITED),
                                            {Field::ALIGNMENT, UNSIGNED},
                                            {Field::VALUE_SIZE, UNSIGNED}};

inline constexpr FieldLayout EVENT[] = {
    FieldLayout::flavour(RTTI::TypeFileFormat::LAST_EVENT_KIND)};

inline constexpr FieldLayout PHYSICAL[] = {{Field::UNIT_COUNT, COUNT},
                                           {Field::UNITS, LIST},
                                           {Field::NAME, NAME},
                                           {Field::VALUE, LONG},
                                           END};

inline constexpr FieldLayout ARRAY[] = {
    FieldLayout::named(Field::ARRAY_KIND, arrayKinds, FindingCode::ARRAY_KIND_UNKNOWN),
    FieldLayout::typeId(Field::ELEMENT_TYPE, Link::PART),
    {Field::INDEX_TYPE_COUNT, COUNT},
    {Field::INDEX_TYPES, LIST},
    FieldLayout::typeId("", Link::NAMED | Link::OR_NONE),
    END,
    CONSTRAINTS,
    LAST_SV_TYPE_ID};

inline constexpr FieldLayout RECORD[] = {
    FieldLayout::named(Field::RECORD_KIND, recordKinds, FindingCode::RECORD_KIND_UNKNOWN),
    MEMBER_COUNT,
    MEMBERS,
    MEMBER_NAME,
    MEMBER_TYPE,
    CONSTRAINTS,
    END,
    LAST_SV_TYPE_ID};

inline constexpr FieldLayout CONTAINER[] = {FieldLayout::typeId(Field::ELEMENT_TYPE, Link::AWAITED),
                                            OWN_SV_TYPE_ID};

inline constexpr FieldLayout ASSOC_ARRAY[] = {
    FieldLayout::typeId(Field::ELEMENT_TYPE, Link::AWAITED), OWN_SV_TYPE_ID,
    FieldLayout::typeId(Field::INDEX_TYPE, Link::AWAITED)};

inline constexpr FieldLayout CLASS[] = {
    FieldLayout::typeId(Field::BASE_CLASS, Link::BASE_CLASS | Link::OR_NONE),
    OWN_SV_TYPE_ID,
    MEMBER_COUNT,
    MEMBERS,
    MEMBER_NAME,
    MEMBER_TYPE,
    CONSTRAINTS,
    {Field::FLAG, BOOLEAN},
    END};

} // namespace Layout

/// Calls `use.operator()<LAYOUT>()` with what follows the flags in a record of this kind, an array
/// of FieldLayout, and gives its answer. A kind that has no body, or builds no type, has
/// `use.none()`.
template <typename Use> constexpr auto withLayout(unsigned int kind, Use&& use) {
    using namespace RTTI;
    switch (kind) {
    case ClassId::SEQ_ENUM: return use.template operator()<Layout::SEQ_ENUM>();
    case ClassId::DISCRETE_ENUM: return use.template operator()<Layout::DISCRETE_ENUM>();
    case ClassId::INT: return use.template operator()<Layout::INT>();
    case ClassId::FLOAT: return use.template operator()<Layout::FLOAT>();
    case ClassId::TYPEDEF: return use.template operator()<Layout::TYPEDEF>();
    case ClassId::ACCESS: return use.template operator()<Layout::ACCESS>();
    case ClassId::FILE_TYPE: return use.template operator()<Layout::FILE_TYPE>();
    case ClassId::EVENT: return use.template operator()<Layout::EVENT>();
    case ClassId::PHYSICAL: return use.template operator()<Layout::PHYSICAL>();
    case ClassId::ARRAY: return use.template operator()<Layout::ARRAY>();
    case ClassId::RECORD: return use.template operator()<Layout::RECORD>();
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE: return use.template operator()<Layout::CONTAINER>();
    case ClassId::ASSOC_ARRAY: return use.template operator()<Layout::ASSOC_ARRAY>();
    case ClassId::CLASS: return use.template operator()<Layout::CLASS>();
    default: return use.none();
    }
}

/// Makes withLayout answer with the layout.
struct LayoutAsSpan {
    template <const auto& LAYOUT> constexpr std::span<const FieldLayout> operator()() const {
        return LAYOUT;
    }
    constexpr std::span<const FieldLayout> none() const { return {}; }
};

/// What follows the flags in a record of this kind; nothing for a kind without a body.
constexpr std::span<const FieldLayout> bodyLayout(unsigned int kind) {
    return withLayout(kind, LayoutAsSpan());
}

/// Where the list that begins at `first` in a layout has its END_OF_LIST.
constexpr std::size_t endOfList(std::span<const FieldLayout> layout, std::size_t first) {
    while (layout[first].form != FieldForm::END_OF_LIST)
        ++first;
    return first;
}

/// Whether a kind code is one that records can have.
constexpr bool isKind(unsigned int kind) {
    return kind >= RTTI::ClassId::SEQ_ENUM && kind <= RTTI::ClassId::WILDCARD;
}

/// Whether a record of this kind builds an object.
constexpr bool buildsType(unsigned int kind) {
    using namespace RTTI::ClassId;
    constexpr auto bit = [](unsigned int code) { return 1U << (code - SEQ_ENUM); };
    constexpr unsigned int WITHOUT =
        bit(CLASS_HANDLE) | bit(LOGIC) | bit(BIT) | bit(ABSTRACT_ARRAY) | bit(AGGREGATE);
    return isKind(kind) && (WITHOUT & bit(kind)) == 0;
}

/// The bytes of a field whose form says how many; 0 for the others.
constexpr std::size_t widthOf(FieldForm form) {
    switch (form) {
    case FieldForm::LONG:
    case FieldForm::REAL:
    case FieldForm::DIRECTION: return 8;
    case FieldForm::RANGE: return RTTI::TypeFileFormat::CONSTRAINT_SIZE;
    case FieldForm::VERSION: return RTTI::TypeFileFormat::VERSION_SIZE;
    case FieldForm::NAME:
    case FieldForm::VALUE:
    case FieldForm::RANGES:
    case FieldForm::LIST:
    case FieldForm::END_OF_LIST: return 0;
    default: return 4;
    }
}

/// The least bytes that a field takes: an empty name has its zero byte, an empty list its count.
constexpr std::size_t leastOf(FieldForm form) {
    return form == FieldForm::NAME ? 1 : form == FieldForm::RANGES ? 4 : widthOf(form);
}

/// The least that some fields take together.
constexpr std::size_t leastOf(std::span<const FieldLayout> fields) {
    std::size_t least = 0;
    for (const FieldLayout& field : fields)
        least += leastOf(field.form);
    return least;
}

} // namespace TypeFile
