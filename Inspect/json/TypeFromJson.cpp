#include "Inspect/json/TypeFromJson.h"

#include "Inspect/words/Counted.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/TypeBuilding.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;

namespace {

[[noreturn]] void refuse(const JsonPlace& place, const std::string& reason) {
    throw JsonError(place.text(), reason);
}

template <typename T> T integerFrom(const Json& json, const JsonPlace& place) {
    constexpr auto LOWEST = std::numeric_limits<T>::min();
    constexpr auto HIGHEST = std::numeric_limits<T>::max();
    const bool isUnsigned = json.is_number_unsigned();
    const bool fits = isUnsigned
                          ? std::in_range<T>(json.get<std::uint64_t>())
                          : json.is_number_integer() && std::in_range<T>(json.get<std::int64_t>());
    if (!fits)
        refuse(place, "must be a whole number from " + std::to_string(LOWEST) + " to " +
                          std::to_string(HIGHEST));
    return isUnsigned ? static_cast<T>(json.get<std::uint64_t>())
                      : static_cast<T>(json.get<std::int64_t>());
}

unsigned int idOrNone(const Json& json, const JsonPlace& place) {
    return json.is_null() ? TypeFileFormat::NO_TYPE_ID : integerFrom<unsigned int>(json, place);
}

std::string nameFrom(const Json& json, const JsonPlace& place) {
    std::string name;
    if (!nameFromJson(json, name))
        refuse(place, NAME_FORMS);
    if (name.find('\0') != std::string::npos)
        refuse(place, "there is a zero byte in the name, where a record's names end");
    return name;
}

/// An object whose keys are asked for one by one; `done` refuses those that nobody asked for.
class ObjectFields {
public:
    ObjectFields(const Json& json, const JsonPlace& place) : m_json(json), m_place(place) {
        if (!json.is_object())
            refuse(place, "must be an object");
    }

    const Json* find(const char* key) {
        const auto found = m_json.find(key);
        if (found == m_json.end())
            return nullptr;
        m_asked.push_back(key);
        return &*found;
    }

    const Json& at(const char* key) {
        const Json* json = find(key);
        if (json == nullptr)
            refuse(m_place, "there is no \"" + std::string(key) + '"');
        return *json;
    }

    JsonPlace placeOf(const char* key) const { return {m_place, key}; }

    template <typename T> T integer(const char* key) {
        return integerFrom<T>(at(key), placeOf(key));
    }

    template <typename T> T integer(const char* key, T otherwise) {
        const Json* json = find(key);
        return json != nullptr ? integerFrom<T>(*json, placeOf(key)) : otherwise;
    }

    unsigned int typeId(const char* key) { return integer<unsigned int>(key); }

    std::string name(const char* key) { return nameFrom(at(key), placeOf(key)); }

    bool flag(const char* key) {
        const Json* json = find(key);
        if (json != nullptr && !json->is_boolean())
            refuse(placeOf(key), "must be true or false");
        return json != nullptr && json->get<bool>();
    }

    double real(const char* key) {
        double value = 0.0;
        if (!realFromJson(at(key), value))
            refuse(placeOf(key), "must be a number, \"Infinity\", \"-Infinity\" or the 16 "
                                 "hexadecimal digits of a number");
        return value;
    }

    /// A number, by its name or as it is.
    template <typename T> T named(const char* key, const NamedValues& names) {
        const Json& json = at(key);
        unsigned int value = 0;
        if (!json.is_string())
            return integerFrom<T>(json, placeOf(key));
        if (!names.find(json.get_ref<const std::string&>(), value))
            refuse(placeOf(key), "there is no " + json.dump(-1, ' ', true));
        return static_cast<T>(value);
    }

    /// Calls `take(item, place)` for each item of a list. A list that may be left out is empty
    /// then.
    template <typename Take> void list(const char* key, bool isOptional, Take take) {
        const Json* json = isOptional ? find(key) : &at(key);
        if (json == nullptr)
            return;
        const JsonPlace place = placeOf(key);
        if (!json->is_array())
            refuse(place, "must be a list");
        for (std::size_t i = 0; i < json->size(); ++i)
            take((*json)[i], JsonPlace(place, i));
    }

    void done() const {
        for (const auto& [key, value] : m_json.items()) {
            if (std::find(m_asked.begin(), m_asked.end(), key) == m_asked.end())
                refuse(m_place, "there is no place for " + Json(key).dump(-1, ' ', true));
        }
    }

private:
    const Json& m_json;
    const JsonPlace& m_place;
    std::vector<std::string_view> m_asked;
};

FullConstraints rangeFrom(const Json& json, const JsonPlace& place) {
    ObjectFields fields(json, place);
    FullConstraints range;
    range.si = fields.integer<int>(Field::SI);
    range.ei = fields.integer<int>(Field::EI);
    range.dir = fields.integer<int>(Field::DIR);
    fields.done();
    return range;
}

std::vector<FullConstraints> constraintsFrom(ObjectFields& fields) {
    std::vector<FullConstraints> constraints;
    fields.list(Field::CONSTRAINTS, true, [&](const Json& json, const JsonPlace& place) {
        constraints.push_back(rangeFrom(json, place));
    });
    return constraints;
}

int svTypeIdFrom(ObjectFields& fields) {
    return fields.integer<int>(Field::SV_TYPE_ID, TypeFileFormat::NO_SV_TYPE_ID);
}

using TypePointer = std::unique_ptr<RTBaseType>;

TypePointer seqEnumFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTSeqEnumType>();
    type->m_valueEncoding =
        static_cast<ValueEncoding>(fields.named<int>(Field::ENCODING, valueEncodings));
    type->m_enumKind = static_cast<EnumKind>(fields.named<int>(Field::ENUM_KIND, enumKinds));
    fields.list(Field::LITERALS, false, [&](const Json& json, const JsonPlace& place) {
        TypeFile::addLiteral(*type, nameFrom(json, place));
    });
    type->m_valueSize = fields.integer<unsigned int>(Field::VALUE_SIZE);
    return type;
}

std::string valueFrom(ObjectFields& fields, unsigned int size) {
    std::string value;
    const Json& json = fields.at(Field::VALUE);
    if (!json.is_string() || !bytesOfHex(json.get_ref<const std::string&>(), value))
        refuse(fields.placeOf(Field::VALUE), "must be text with two hexadecimal digits a byte");
    if (value.size() != size)
        refuse(fields.placeOf(Field::VALUE), "the value has " + counted(value.size(), "byte") +
                                                 ", and the type's \"valueSize\" is " +
                                                 std::to_string(size));
    return value;
}

TypePointer discreteEnumFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTDiscreteEnumType>();
    type->m_baseTypeId = fields.typeId(Field::BASE_TYPE);
    const auto size = fields.integer<int>(Field::VALUE_SIZE);
    if (size < 0)
        refuse(fields.placeOf(Field::VALUE_SIZE), "must not be negative");
    type->m_valueSize = static_cast<unsigned int>(size);
    fields.list(Field::LITERALS, false, [&](const Json& json, const JsonPlace& place) {
        ObjectFields literal(json, place);
        const std::string name = literal.name(Field::NAME);
        TypeFile::addLiteral(*type, name, valueFrom(literal, type->m_valueSize));
        literal.done();
    });
    type->m_constraints = constraintsFrom(fields);
    return type;
}

TypePointer integerTypeFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTIntType>();
    type->m_constraint = rangeFrom(fields.at(Field::RANGE), fields.placeOf(Field::RANGE));
    return type;
}

/// A flavour above the largest would not come back from a file.
int flavourFrom(ObjectFields& fields, int largest) {
    const int flavour = fields.integer<int>(Field::FLAVOUR);
    if (flavour > largest)
        refuse(fields.placeOf(Field::FLAVOUR), "must be at most " + std::to_string(largest));
    return flavour;
}

TypePointer realTypeFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTFloatType>();
    type->m_floatKind = flavourFrom(fields, TypeFileFormat::LAST_FLOAT_KIND);
    type->m_left = fields.real(Field::LEFT);
    type->m_right = fields.real(Field::RIGHT);
    type->m_direction = fields.integer<int>(Field::DIRECTION);
    return type;
}

TypePointer typedefFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTTypedefType>();
    type->m_dataTypeId = fields.typeId(Field::DATA_TYPE);
    type->m_constraints = constraintsFrom(fields);
    return type;
}

template <typename Type> TypePointer designatingFrom(ObjectFields& fields) {
    auto type = std::make_unique<Type>();
    type->m_refTypeId = fields.typeId(Field::REF_TYPE);
    type->m_alignment = fields.integer<unsigned int>(Field::ALIGNMENT);
    type->m_valueSize = fields.integer<unsigned int>(Field::VALUE_SIZE);
    return type;
}

TypePointer eventFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTEventType>();
    type->m_eventKind = flavourFrom(fields, TypeFileFormat::LAST_EVENT_KIND);
    return type;
}

TypePointer physicalFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTPhysicalType>();
    fields.list(Field::UNITS, false, [&](const Json& json, const JsonPlace& place) {
        ObjectFields unit(json, place);
        const std::string name = unit.name(Field::NAME);
        TypeFile::addUnit(*type, name, unit.integer<long long>(Field::VALUE));
        unit.done();
    });
    return type;
}

TypePointer arrayFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTArrayType>();
    type->m_arrayKind =
        static_cast<ArrayKind>(fields.named<unsigned int>(Field::ARRAY_KIND, arrayKinds));
    type->m_elementTypeId = fields.typeId(Field::ELEMENT_TYPE);
    fields.list(Field::INDEX_TYPES, false, [&](const Json& json, const JsonPlace& place) {
        type->m_indexTypeIds.push_back(idOrNone(json, place));
    });
    type->m_constraints = constraintsFrom(fields);
    type->m_svTypeId = svTypeIdFrom(fields);
    return type;
}

template <typename Type> std::unique_ptr<Type> containerFrom(ObjectFields& fields) {
    auto type = std::make_unique<Type>();
    type->m_elementTypeId = fields.typeId(Field::ELEMENT_TYPE);
    type->m_svTypeId = svTypeIdFrom(fields);
    return type;
}

TypePointer assocArrayFrom(ObjectFields& fields) {
    auto type = containerFrom<RTAssocArrayType>(fields);
    type->m_indexTypeId = fields.typeId(Field::INDEX_TYPE);
    return type;
}

TypePointer recordFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTRecordType>();
    type->m_recordKind =
        static_cast<RecordKind>(fields.named<unsigned int>(Field::RECORD_KIND, recordKinds));
    fields.list(Field::MEMBERS, false, [&](const Json& json, const JsonPlace& place) {
        ObjectFields member(json, place);
        const std::string name = member.name(Field::NAME);
        const unsigned int typeId = member.typeId(Field::TYPE);
        TypeFile::addMember(*type, name, typeId, constraintsFrom(member));
        member.done();
    });
    type->m_svTypeId = svTypeIdFrom(fields);
    return type;
}

TypePointer classFrom(ObjectFields& fields) {
    auto type = std::make_unique<RTClassType>();
    type->m_baseClassTypeId =
        idOrNone(fields.at(Field::BASE_CLASS), fields.placeOf(Field::BASE_CLASS));
    type->m_svTypeId = svTypeIdFrom(fields);
    fields.list(Field::MEMBERS, false, [&](const Json& json, const JsonPlace& place) {
        ObjectFields member(json, place);
        const std::string name = member.name(Field::NAME);
        const unsigned int typeId = member.typeId(Field::TYPE);
        std::vector<FullConstraints> constraints = constraintsFrom(member);
        TypeFile::addMember(*type, name, typeId, std::move(constraints), member.flag(Field::FLAG));
        member.done();
    });
    return type;
}

TypePointer typeOfKind(unsigned int classId, ObjectFields& fields) {
    switch (classId) {
    case ClassId::SEQ_ENUM: return seqEnumFrom(fields);
    case ClassId::DISCRETE_ENUM: return discreteEnumFrom(fields);
    case ClassId::INT: return integerTypeFrom(fields);
    case ClassId::FLOAT: return realTypeFrom(fields);
    case ClassId::TYPEDEF: return typedefFrom(fields);
    case ClassId::ACCESS: return designatingFrom<RTAccessType>(fields);
    case ClassId::CHANDLE: return std::make_unique<RTCHandle>(nullptr);
    case ClassId::EVENT: return eventFrom(fields);
    case ClassId::FILE_TYPE: return designatingFrom<RTFileType>(fields);
    case ClassId::PHYSICAL: return physicalFrom(fields);
    case ClassId::ARRAY: return arrayFrom(fields);
    case ClassId::RECORD: return recordFrom(fields);
    case ClassId::DYNAMIC_ARRAY: return containerFrom<RTDynamicArrayType>(fields);
    case ClassId::QUEUE: return containerFrom<RTQueueType>(fields);
    case ClassId::ASSOC_ARRAY: return assocArrayFrom(fields);
    case ClassId::CLASS: return classFrom(fields);
    case ClassId::STRING: return std::make_unique<RTStringType>();
    case ClassId::WILDCARD: return std::make_unique<RTWildCardType>();
    default: return nullptr;
    }
}

} // namespace

DescribedType typeFromJson(const Json& json, const JsonPlace& place) {
    ObjectFields fields(json, place);
    DescribedType described;
    described.id = fields.typeId(Field::ID);
    const Json& kind = fields.at(Field::KIND);
    const JsonPlace kindPlace = fields.placeOf(Field::KIND);
    if (!kind.is_string())
        refuse(kindPlace, "must be text");
    if (kind == JSON_NO_TYPE)
        refuse(kindPlace, "an id without a type cannot be written");
    const unsigned int classId = classIdOfJsonKind(kind.get_ref<const std::string&>());
    if (classId == 0)
        refuse(kindPlace, "there is no kind " + kind.dump(-1, ' ', true));
    const std::string name = fields.name(Field::NAME);
    const auto flags = fields.integer<unsigned int>(Field::FLAGS, 0U);
    described.type = typeOfKind(classId, fields);
    TypeFile::setName(*described.type, name);
    described.type->m_flags = flags;
    fields.done();
    return described;
}

} // namespace Inspect
