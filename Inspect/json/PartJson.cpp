#include "Inspect/json/PartJson.h"

#include "Inspect/json/JsonValues.h"
#include "TypeFile/FieldNames.h"

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;

void openDocument(JsonText& text, std::string_view format) {
    text.openObject();
    text.member(JsonKey::FORMAT, format);
    text.member(JsonKey::FORMAT_VERSION, JSON_FORMAT_VERSION);
}

unsigned int kindDetailOf(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_arrayKind;
    case ClassId::RECORD: return static_cast<const RTRecordType&>(type).m_recordKind;
    default: return 0;
    }
}

void kindMembers(JsonText& text, unsigned int kindCode, std::optional<unsigned int> detail) {
    const char* kind = jsonKindOf(kindCode);
    text.member(Field::KIND, kind != nullptr ? kind : JSON_NO_TYPE);
    if (kindCode == ClassId::ARRAY && detail) {
        text.key(Field::ARRAY_KIND);
        text.named(static_cast<ArrayKind>(*detail));
    }
    if (kindCode == ClassId::RECORD && detail) {
        text.key(Field::RECORD_KIND);
        text.named(static_cast<RecordKind>(*detail));
    }
}

void kindAndName(JsonText& text, const RTBaseType* type) {
    if (type == nullptr) {
        kindMembers(text, 0, std::nullopt);
        text.member(Field::NAME, nullptr);
        return;
    }
    kindMembers(text, type->GetClassId(), kindDetailOf(*type));
    text.key(Field::NAME);
    text.name(type->m_name);
}

void typeMembers(JsonText& text, unsigned int id, const RTBaseType* type) {
    text.key(Field::ID);
    if (id != TypeFileFormat::NO_TYPE_ID)
        text.value(id);
    else
        text.value(nullptr);
    kindAndName(text, type);
}

} // namespace Inspect
