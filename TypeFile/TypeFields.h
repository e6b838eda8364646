#pragma once

#include "RTTI/RTType.h"
#include "TypeFile/FieldNames.h"

#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace TypeFile {

/// The role of a reference from one type to another.
enum class LinkRole {
    ALIASED,      ///< The type behind a typedef.
    BASE_TYPE,    ///< The base type of a discrete enumeration.
    DESIGNATED,   ///< The type that an access type designates.
    FILE_ELEMENT, ///< The element type of a file type.
    ELEMENT,      ///< The element type of an array.
    INDEX,        ///< An index type of an array.
    BASE_CLASS,   ///< The base class of a class.
    MEMBER        ///< The type of a member of a record, struct, union or class.
};

/// What the value of a field stands for. Code that takes fields gets the form as an argument, and
/// distinguishes forms by overloading.
namespace Form {

/// Text without a zero byte: a `char*` that its object owns (array new) and that may be null, or a
/// `std::string`.
struct Name {};

/// A whole number.
struct Number {};

/// A word of bits.
struct Flags {};

/// One of the library's enumerations. A value need not have a name.
struct Named {};

/// A whole number up to a limit; a loader reads larger numbers as 0.
struct Flavour {
    int last; ///< The limit.
};

/// A double.
struct Real {};

/// True or false.
struct Boolean {};

/// One FullConstraints.
struct Range {};

/// A vector of FullConstraints.
struct Ranges {};

/// A SystemVerilog type id.
struct SVTypeId {};

/// The size of the type's values in bytes.
struct ValueSize {};

/// The bytes of a literal's value, as many as the ValueSize before it says (array new).
struct Value {};

/// The id of another type. `Link` is a pointer to the member that points at that type, or
/// `std::nullptr_t` if there is no such member.
template <typename Link> struct TypeId {
    LinkRole role;  ///< What the other type is to this one.
    bool mayBeNone; ///< Whether a record may hold NO_TYPE_ID.
    Link link;      ///< The member that points at the other type, which may be null.
};

/// A vector of values without names of their own, all of one form.
template <typename Item> struct Items {
    Item item; ///< The form of each.
};

/// A vector of objects of the class `Entry`, which have fields of their own, or of owning pointers
/// to such objects. A pointer may be null, or lead to an object of a base class of `Entry`.
template <typename Entry> struct Entries {};

} // namespace Form

/// One field of a class.
template <typename Member, typename ItsForm> struct TypeField {
    const char* name; ///< One of the names in `Field`: the one that all texts use.
    Member member;    ///< A pointer to the member that holds the value.
    ItsForm form;     ///< One of the structs in `Form`.

    /// A field of the class that the pointer belongs to.
    constexpr TypeField(const char* fieldName, Member fieldMember, ItsForm fieldForm)
        : name(fieldName), member(fieldMember), form(fieldForm) {}
};

/// A field that refers to another type: the members with its id and with the pointer to it.
template <typename Id, typename Link>
constexpr auto referenceField(const char* name, LinkRole role, Id id, Link link,
                              bool mayBeNone = false) {
    return TypeField(name, id, Form::TypeId<Link>{role, mayBeNone, link});
}

/// The fields of a class in the order of its record, as a tuple of TypeField. Those of RTBaseType
/// come before those of every other type class, which does not list them again. Links and reserved
/// members are not fields.
template <typename Class> inline constexpr auto FIELDS = nullptr;

/// The fields of one class.
/// @{
template <>
inline constexpr auto FIELDS<RTTI::FullConstraints> =
    std::tuple(TypeField(Field::SI, &RTTI::FullConstraints::si, Form::Number()),
               TypeField(Field::EI, &RTTI::FullConstraints::ei, Form::Number()),
               TypeField(Field::DIR, &RTTI::FullConstraints::dir, Form::Number()));

template <>
inline constexpr auto FIELDS<RTTI::RTBaseType> =
    std::tuple(TypeField(Field::NAME, &RTTI::RTBaseType::m_name, Form::Name()),
               TypeField(Field::FLAGS, &RTTI::RTBaseType::m_flags, Form::Flags()));

template <>
inline constexpr auto FIELDS<RTTI::RTSeqEnumType> = std::tuple(
    TypeField(Field::ENCODING, &RTTI::RTSeqEnumType::m_valueEncoding, Form::Named()),
    TypeField(Field::ENUM_KIND, &RTTI::RTSeqEnumType::m_enumKind, Form::Named()),
    TypeField(Field::LITERALS, &RTTI::RTSeqEnumType::m_enumeratorNames, Form::Items<Form::Name>()),
    TypeField(Field::VALUE_SIZE, &RTTI::RTSeqEnumType::m_valueSize, Form::ValueSize()));

template <>
inline constexpr auto FIELDS<RTTI::t_enumNameAndValuePair> =
    std::tuple(TypeField(Field::NAME, &RTTI::t_enumNameAndValuePair::enumName, Form::Name()),
               TypeField(Field::VALUE, &RTTI::t_enumNameAndValuePair::value, Form::Value()));

template <>
inline constexpr auto FIELDS<RTTI::RTDiscreteEnumType> = std::tuple(
    referenceField(Field::BASE_TYPE, LinkRole::BASE_TYPE, &RTTI::RTDiscreteEnumType::m_baseTypeId,
                   &RTTI::RTDiscreteEnumType::m_baseType),
    TypeField(Field::VALUE_SIZE, &RTTI::RTDiscreteEnumType::m_valueSize, Form::ValueSize()),
    TypeField(Field::LITERALS, &RTTI::RTDiscreteEnumType::m_enumerators,
              Form::Entries<RTTI::t_enumNameAndValuePair>()),
    TypeField(Field::CONSTRAINTS, &RTTI::RTDiscreteEnumType::m_constraints, Form::Ranges()));

template <>
inline constexpr auto FIELDS<RTTI::RTIntType> =
    std::tuple(TypeField(Field::RANGE, &RTTI::RTIntType::m_constraint, Form::Range()));

template <>
inline constexpr auto FIELDS<RTTI::RTFloatType> =
    std::tuple(TypeField(Field::FLAVOUR, &RTTI::RTFloatType::m_floatKind,
                         Form::Flavour{RTTI::TypeFileFormat::LAST_FLOAT_KIND}),
               TypeField(Field::LEFT, &RTTI::RTFloatType::m_left, Form::Real()),
               TypeField(Field::RIGHT, &RTTI::RTFloatType::m_right, Form::Real()),
               TypeField(Field::DIRECTION, &RTTI::RTFloatType::m_direction, Form::Number()));

template <>
inline constexpr auto FIELDS<RTTI::RTTypedefType> =
    std::tuple(referenceField(Field::DATA_TYPE, LinkRole::ALIASED,
                              &RTTI::RTTypedefType::m_dataTypeId, &RTTI::RTTypedefType::m_dataType),
               TypeField(Field::CONSTRAINTS, &RTTI::RTTypedefType::m_constraints, Form::Ranges()));

template <>
inline constexpr auto FIELDS<RTTI::RTAccessType> =
    std::tuple(referenceField(Field::REF_TYPE, LinkRole::DESIGNATED,
                              &RTTI::RTAccessType::m_refTypeId, &RTTI::RTAccessType::m_refType),
               TypeField(Field::ALIGNMENT, &RTTI::RTAccessType::m_alignment, Form::Number()),
               TypeField(Field::VALUE_SIZE, &RTTI::RTAccessType::m_valueSize, Form::ValueSize()));

template <>
inline constexpr auto FIELDS<RTTI::RTFileType> =
    std::tuple(referenceField(Field::REF_TYPE, LinkRole::FILE_ELEMENT,
                              &RTTI::RTFileType::m_refTypeId, &RTTI::RTFileType::m_refType),
               TypeField(Field::ALIGNMENT, &RTTI::RTFileType::m_alignment, Form::Number()),
               TypeField(Field::VALUE_SIZE, &RTTI::RTFileType::m_valueSize, Form::ValueSize()));

template <> inline constexpr auto FIELDS<RTTI::RTCHandle> = std::tuple();

template <> inline constexpr auto FIELDS<RTTI::RTStringType> = std::tuple();

template <> inline constexpr auto FIELDS<RTTI::RTWildCardType> = std::tuple();

template <>
inline constexpr auto FIELDS<RTTI::RTEventType> =
    std::tuple(TypeField(Field::FLAVOUR, &RTTI::RTEventType::m_eventKind,
                         Form::Flavour{RTTI::TypeFileFormat::LAST_EVENT_KIND}));

template <>
inline constexpr auto FIELDS<RTTI::t_unitNameAndValuePair> =
    std::tuple(TypeField(Field::NAME, &RTTI::t_unitNameAndValuePair::unitName, Form::Name()),
               TypeField(Field::VALUE, &RTTI::t_unitNameAndValuePair::value, Form::Number()));

template <>
inline constexpr auto FIELDS<RTTI::RTPhysicalType> = std::tuple(TypeField(
    Field::UNITS, &RTTI::RTPhysicalType::m_units, Form::Entries<RTTI::t_unitNameAndValuePair>()));

template <>
inline constexpr auto FIELDS<RTTI::RTArrayType> = std::tuple(
    TypeField(Field::ARRAY_KIND, &RTTI::RTArrayType::m_arrayKind, Form::Named()),
    referenceField(Field::ELEMENT_TYPE, LinkRole::ELEMENT, &RTTI::RTArrayType::m_elementTypeId,
                   &RTTI::RTArrayType::m_elementType),
    TypeField(Field::INDEX_TYPES, &RTTI::RTArrayType::m_indexTypeIds,
              Form::Items<Form::TypeId<std::nullptr_t>>{{LinkRole::INDEX, true, nullptr}}),
    TypeField(Field::CONSTRAINTS, &RTTI::RTArrayType::m_constraints, Form::Ranges()),
    TypeField(Field::SV_TYPE_ID, &RTTI::RTArrayType::m_svTypeId, Form::SVTypeId()));

template <>
inline constexpr auto FIELDS<RTTI::RTAbstractArrayType> = std::tuple(
    referenceField(Field::ELEMENT_TYPE, LinkRole::ELEMENT,
                   &RTTI::RTAbstractArrayType::m_elementTypeId,
                   &RTTI::RTAbstractArrayType::m_elementType),
    TypeField(Field::SV_TYPE_ID, &RTTI::RTAbstractArrayType::m_svTypeId, Form::SVTypeId()));

template <>
inline constexpr auto FIELDS<RTTI::RTDynamicArrayType> = FIELDS<RTTI::RTAbstractArrayType>;

template <> inline constexpr auto FIELDS<RTTI::RTQueueType> = FIELDS<RTTI::RTAbstractArrayType>;

template <>
inline constexpr auto FIELDS<RTTI::RTAssocArrayType> =
    std::tuple_cat(FIELDS<RTTI::RTAbstractArrayType>,
                   std::tuple(referenceField(Field::INDEX_TYPE, LinkRole::INDEX,
                                             &RTTI::RTAssocArrayType::m_indexTypeId,
                                             &RTTI::RTAssocArrayType::m_indexType)));

template <>
inline constexpr auto FIELDS<RTTI::RTAggregateType::t_Member> = std::tuple(
    TypeField(Field::NAME, &RTTI::RTAggregateType::t_Member::m_memberName, Form::Name()),
    referenceField(Field::TYPE, LinkRole::MEMBER, &RTTI::RTAggregateType::t_Member::m_typeId,
                   nullptr),
    TypeField(Field::CONSTRAINTS, &RTTI::RTAggregateType::t_Member::m_constraints, Form::Ranges()));

template <>
inline constexpr auto FIELDS<RTTI::RTClassType::t_ClassMember> = std::tuple_cat(
    FIELDS<RTTI::RTAggregateType::t_Member>,
    std::tuple(TypeField(Field::FLAG, &RTTI::RTClassType::t_ClassMember::m_memberFlag,
                         Form::Boolean())));

template <>
inline constexpr auto FIELDS<RTTI::RTRecordType> =
    std::tuple(TypeField(Field::RECORD_KIND, &RTTI::RTRecordType::m_recordKind, Form::Named()),
               TypeField(Field::MEMBERS, &RTTI::RTRecordType::m_members,
                         Form::Entries<RTTI::RTAggregateType::t_Member>()),
               TypeField(Field::SV_TYPE_ID, &RTTI::RTRecordType::m_svTypeId, Form::SVTypeId()));

template <>
inline constexpr auto FIELDS<RTTI::RTClassType> = std::tuple(
    referenceField(Field::BASE_CLASS, LinkRole::BASE_CLASS, &RTTI::RTClassType::m_baseClassTypeId,
                   &RTTI::RTClassType::m_baseClass, true),
    TypeField(Field::SV_TYPE_ID, &RTTI::RTClassType::m_svTypeId, Form::SVTypeId()),
    TypeField(Field::MEMBERS, &RTTI::RTClassType::m_members,
              Form::Entries<RTTI::RTClassType::t_ClassMember>()));

/// @}

/// Calls `use(name, value, form)` for each field that `FIELDS` lists for the object's class, in
/// order. `value` is the member itself, const if the object is.
template <typename Object, typename Use> void forEachField(Object& object, Use&& use) {
    std::apply(
        [&](const auto&... field) { (use(field.name, object.*field.member, field.form), ...); },
        FIELDS<std::remove_const_t<Object>>);
}

/// The same for an entry of a list. Returns false, without a call, if it is a null pointer. An
/// object that is not an `Entry` has the fields of the list's own class.
template <typename Entry, typename List, typename Use>
bool forEachField(Form::Entries<Entry>, List& list, std::size_t index, Use&& use) {
    using Item = typename List::value_type;
    if constexpr (std::is_pointer_v<Item>) {
        using Base = std::remove_pointer_t<Item>;
        std::conditional_t<std::is_const_v<List>, const Base, Base>* const item = list[index];
        if (item == nullptr)
            return false;
        if constexpr (!std::is_same_v<Base, Entry>) {
            using Own = std::conditional_t<std::is_const_v<List>, const Entry, Entry>;
            if (auto* const own = dynamic_cast<Own*>(item)) {
                forEachField(*own, use);
                return true;
            }
        }
        forEachField(*item, use);
    } else {
        forEachField(list[index], use);
    }
    return true;
}

/// A class of types as an argument.
template <typename TypeClass, unsigned int ID> struct ClassTag {
    using Class = TypeClass;                     ///< The class.
    static constexpr unsigned int CLASS_ID = ID; ///< What its GetClassId answers.
};

/// Calls `use` with the ClassTag of a class id. Returns false, without a call, if a loader makes no
/// objects with this id.
template <typename Use> bool withClass(unsigned int classId, Use&& use) {
    using namespace RTTI;
    switch (classId) {
    case ClassId::SEQ_ENUM: return use(ClassTag<RTSeqEnumType, ClassId::SEQ_ENUM>()), true;
    case ClassId::DISCRETE_ENUM:
        return use(ClassTag<RTDiscreteEnumType, ClassId::DISCRETE_ENUM>()), true;
    case ClassId::INT: return use(ClassTag<RTIntType, ClassId::INT>()), true;
    case ClassId::FLOAT: return use(ClassTag<RTFloatType, ClassId::FLOAT>()), true;
    case ClassId::TYPEDEF: return use(ClassTag<RTTypedefType, ClassId::TYPEDEF>()), true;
    case ClassId::ACCESS: return use(ClassTag<RTAccessType, ClassId::ACCESS>()), true;
    case ClassId::CHANDLE: return use(ClassTag<RTCHandle, ClassId::CHANDLE>()), true;
    case ClassId::EVENT: return use(ClassTag<RTEventType, ClassId::EVENT>()), true;
    case ClassId::FILE_TYPE: return use(ClassTag<RTFileType, ClassId::FILE_TYPE>()), true;
    case ClassId::PHYSICAL: return use(ClassTag<RTPhysicalType, ClassId::PHYSICAL>()), true;
    case ClassId::ARRAY: return use(ClassTag<RTArrayType, ClassId::ARRAY>()), true;
    case ClassId::RECORD: return use(ClassTag<RTRecordType, ClassId::RECORD>()), true;
    case ClassId::DYNAMIC_ARRAY:
        return use(ClassTag<RTDynamicArrayType, ClassId::DYNAMIC_ARRAY>()), true;
    case ClassId::QUEUE: return use(ClassTag<RTQueueType, ClassId::QUEUE>()), true;
    case ClassId::ASSOC_ARRAY: return use(ClassTag<RTAssocArrayType, ClassId::ASSOC_ARRAY>()), true;
    case ClassId::CLASS: return use(ClassTag<RTClassType, ClassId::CLASS>()), true;
    case ClassId::STRING: return use(ClassTag<RTStringType, ClassId::STRING>()), true;
    case ClassId::WILDCARD: return use(ClassTag<RTWildCardType, ClassId::WILDCARD>()), true;
    default: return false;
    }
}

/// Calls `use` with the type as an object of its own class, const if `type` is. Returns false,
/// without a call, if a loader makes no objects of that class.
template <typename Type, typename Use> bool asItsClass(Type& type, Use&& use) {
    constexpr bool IS_CONST = std::is_const_v<Type>;
    using Base = std::conditional_t<IS_CONST, const RTTI::RTBaseType, RTTI::RTBaseType>;
    return withClass(type.GetClassId(), [&](auto tag) {
        using Class = typename decltype(tag)::Class;
        use(static_cast<std::conditional_t<IS_CONST, const Class, Class>&>(
            static_cast<Base&>(type)));
    });
}

/// Takes fields and passes on the references among them; forEachReference is the way to use it.
template <typename Use> class ReferenceFinder {
public:
    /// Keeps a reference to `use`.
    explicit ReferenceFinder(Use& use, std::size_t position = 0)
        : m_use(use), m_position(position) {}

    /// A reference, a list of references, a list whose entries may have references, and a field
    /// without any.
    /// @{
    template <typename Id, typename Link>
    void operator()(const char*, Id& id, const Form::TypeId<Link>& form) const {
        m_use(id, form, m_position);
    }
    template <typename Ids, typename Link>
    void operator()(const char*, Ids& ids, const Form::Items<Form::TypeId<Link>>& form) const {
        for (std::size_t i = 0; i < ids.size(); ++i)
            m_use(ids[i], form.item, i);
    }
    template <typename List, typename Entry>
    void operator()(const char*, List& list, const Form::Entries<Entry>& form) const {
        for (std::size_t i = 0; i < list.size(); ++i)
            forEachField(form, list, i, ReferenceFinder(m_use, i));
    }
    template <typename Value, typename Other>
    void operator()(const char*, Value&, const Other&) const {}
    /// @}

private:
    Use& m_use;
    std::size_t m_position;
};

/// Calls `use(id, form, position)` for each field of a type that holds the id of another one, in
/// the order of the record, also where the id says "no type". `id` can be changed unless the type
/// is const; `position` is the index of the member or dimension, else 0.
template <typename Type, typename Use> void forEachReference(Type& type, Use&& use) {
    asItsClass(type, [&](auto& object) { forEachField(object, ReferenceFinder(use)); });
}

} // namespace TypeFile
