#include "Inspect/json/PartJson.h"

#include "TypeFile/FieldNames.h"

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;

Json jsonHead(const char* format, const Json& rest) {
    Json head{{JsonKey::FORMAT, format}, {JsonKey::FORMAT_VERSION, JSON_FORMAT_VERSION}};
    head.update(rest);
    return head;
}

unsigned int kindDetailOf(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_arrayKind;
    case ClassId::RECORD: return static_cast<const RTRecordType&>(type).m_recordKind;
    default: return 0;
    }
}

Json kindToJson(unsigned int kindCode, std::optional<unsigned int> detail) {
    const char* kind = jsonKindOf(kindCode);
    Json json{{Field::KIND, kind != nullptr ? kind : JSON_NO_TYPE}};
    if (kindCode == ClassId::ARRAY && detail)
        json[Field::ARRAY_KIND] = namedToJson(static_cast<ArrayKind>(*detail));
    if (kindCode == ClassId::RECORD && detail)
        json[Field::RECORD_KIND] = namedToJson(static_cast<RecordKind>(*detail));
    return json;
}

Json typeToJson(unsigned int id, const RTBaseType* type) {
    Json json{{Field::ID, id != TypeFileFormat::NO_TYPE_ID ? Json(id) : Json()}};
    json.update(type != nullptr ? kindToJson(type->GetClassId(), kindDetailOf(*type))
                                : kindToJson(0, std::nullopt));
    json[Field::NAME] = type != nullptr ? nameToJson(type->m_name) : Json();
    return json;
}

} // namespace Inspect
