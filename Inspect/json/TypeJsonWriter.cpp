#include "Inspect/json/TypeJsonWriter.h"

#include "Inspect/json/JsonLines.h"
#include "RTTI/RTTypeVisitor.h"
#include "TypeFile/FieldNames.h"

#include <string>

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;

namespace {

Json idOrNull(unsigned int id) { return id != TypeFileFormat::NO_TYPE_ID ? Json(id) : Json(); }

/// Sets the fields of a type's own class, in the order of its record.
class FieldSetter : public RTTypeVisitor {
public:
    explicit FieldSetter(Json& json) : m_json(json) {}

    // Classes without fields, and those that no object has.
    bool visit(const RTBaseType&) override { return true; }
    bool visit(const RTEnumType&) override { return true; }
    bool visit(const RTCHandle&) override { return true; }
    bool visit(const RTClassHandle&) override { return true; }
    bool visit(const RTLogicType&) override { return true; }
    bool visit(const RTBitType&) override { return true; }
    bool visit(const RTStringType&) override { return true; }

    bool visit(const RTSeqEnumType& type) override {
        m_json[Field::ENCODING] =
            namedToJson(valueEncodings, static_cast<int>(type.m_valueEncoding));
        m_json[Field::ENUM_KIND] = namedToJson(enumKinds, static_cast<int>(type.m_enumKind));
        Json& literals = m_json[Field::LITERALS] = Json::array();
        for (const char* name : type.m_enumeratorNames)
            literals.push_back(nameToJson(name));
        m_json[Field::VALUE_SIZE] = type.m_valueSize;
        return true;
    }

    bool visit(const RTDiscreteEnumType& type) override {
        m_json[Field::BASE_TYPE] = type.m_baseTypeId;
        m_json[Field::VALUE_SIZE] = type.m_valueSize;
        Json& literals = m_json[Field::LITERALS] = Json::array();
        for (const t_enumNameAndValuePair& literal : type.m_enumerators)
            literals.push_back({{Field::NAME, nameToJson(literal.enumName)},
                                {Field::VALUE, hexOf({literal.value, type.m_valueSize})}});
        m_json[Field::CONSTRAINTS] = rangesToJson(type.m_constraints);
        return true;
    }

    bool visit(const RTIntType& type) override {
        m_json[Field::RANGE] = rangeToJson(type.m_constraint);
        return true;
    }

    bool visit(const RTFloatType& type) override {
        m_json[Field::FLAVOUR] = type.m_floatKind;
        m_json[Field::LEFT] = realToJson(type.m_left);
        m_json[Field::RIGHT] = realToJson(type.m_right);
        m_json[Field::DIRECTION] = type.m_direction;
        return true;
    }

    bool visit(const RTEventType& type) override {
        m_json[Field::FLAVOUR] = type.m_eventKind;
        return true;
    }

    bool visit(const RTPhysicalType& type) override {
        Json& units = m_json[Field::UNITS] = Json::array();
        for (const t_unitNameAndValuePair& unit : type.m_units)
            units.push_back({{Field::NAME, nameToJson(unit.unitName)}, {Field::VALUE, unit.value}});
        return true;
    }

    bool visit(const RTTypedefType& type) override {
        m_json[Field::DATA_TYPE] = type.m_dataTypeId;
        m_json[Field::CONSTRAINTS] = rangesToJson(type.m_constraints);
        return true;
    }

    bool visit(const RTAccessType& type) override { return designating(type); }
    bool visit(const RTFileType& type) override { return designating(type); }

    bool visit(const RTArrayType& type) override {
        m_json[Field::ARRAY_KIND] =
            namedToJson(arrayKinds, static_cast<unsigned int>(type.m_arrayKind));
        m_json[Field::ELEMENT_TYPE] = type.m_elementTypeId;
        Json& indexTypes = m_json[Field::INDEX_TYPES] = Json::array();
        for (const unsigned int id : type.m_indexTypeIds)
            indexTypes.push_back(idOrNull(id));
        m_json[Field::CONSTRAINTS] = rangesToJson(type.m_constraints);
        m_json[Field::SV_TYPE_ID] = type.m_svTypeId;
        return true;
    }

    bool visit(const RTAbstractArrayType& type) override {
        m_json[Field::ELEMENT_TYPE] = type.m_elementTypeId;
        m_json[Field::SV_TYPE_ID] = type.m_svTypeId;
        return true;
    }
    bool visit(const RTDynamicArrayType& type) override { return container(type); }
    bool visit(const RTQueueType& type) override { return container(type); }

    bool visit(const RTAssocArrayType& type) override {
        container(type);
        m_json[Field::INDEX_TYPE] = type.m_indexTypeId;
        return true;
    }

    bool visit(const RTAggregateType& type) override {
        Json& members = m_json[Field::MEMBERS] = Json::array();
        for (const RTAggregateType::t_Member* member : type.m_members) {
            Json object{{Field::NAME, nameToJson(member->m_memberName)},
                        {Field::TYPE, member->m_typeId},
                        {Field::CONSTRAINTS, rangesToJson(member->m_constraints)}};
            if (const auto* inClass = dynamic_cast<const RTClassType::t_ClassMember*>(member))
                object[Field::FLAG] = inClass->m_memberFlag;
            members.push_back(std::move(object));
        }
        return true;
    }

    bool visit(const RTRecordType& type) override {
        m_json[Field::RECORD_KIND] =
            namedToJson(recordKinds, static_cast<unsigned int>(type.m_recordKind));
        visit(static_cast<const RTAggregateType&>(type));
        m_json[Field::SV_TYPE_ID] = type.m_svTypeId;
        return true;
    }

    bool visit(const RTClassType& type) override {
        m_json[Field::BASE_CLASS] = idOrNull(type.m_baseClassTypeId);
        m_json[Field::SV_TYPE_ID] = type.m_svTypeId;
        return visit(static_cast<const RTAggregateType&>(type));
    }

private:
    bool container(const RTAbstractArrayType& type) { return visit(type); }

    template <typename Type> bool designating(const Type& type) {
        m_json[Field::REF_TYPE] = type.m_refTypeId;
        m_json[Field::ALIGNMENT] = type.m_alignment;
        m_json[Field::VALUE_SIZE] = type.m_valueSize;
        return true;
    }

    Json& m_json;
};

} // namespace

TypeJsonWriter::TypeJsonWriter(std::ostream& out, JsonForm form, std::string_view version,
                               bool isPart) {
    Json head{{JsonKey::FORMAT, JSON_FORMAT},
              {JsonKey::FORMAT_VERSION, JSON_FORMAT_VERSION},
              {Field::VERSION, nameToJson(version)}};
    if (isPart)
        head[JsonKey::IS_PART] = true;
    m_lines = std::make_unique<JsonLines>(out, form, head, JsonKey::TYPES);
}

TypeJsonWriter::~TypeJsonWriter() = default;

void TypeJsonWriter::type(unsigned int id, const RTBaseType& type) {
    const char* kind = jsonKindOf(type.GetClassId());
    Json json{{Field::ID, id},
              {Field::KIND, kind != nullptr ? Json(kind) : Json()},
              {Field::NAME, nameToJson(type.m_name)},
              {Field::FLAGS, type.m_flags}};
    FieldSetter fields(json);
    type.accept(fields);
    m_lines->add(json);
}

void TypeJsonWriter::noType(unsigned int id, unsigned int kindCode) {
    m_lines->add({{Field::ID, id}, {Field::KIND, JSON_NO_TYPE}, {JsonKey::KIND_CODE, kindCode}});
}

void TypeJsonWriter::end() { m_lines->end(); }

} // namespace Inspect
