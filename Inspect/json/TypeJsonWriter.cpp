#include "Inspect/json/TypeJsonWriter.h"

#include "Inspect/json/JsonLines.h"
#include "TypeFile/TypeFields.h"

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;
namespace Form = TypeFile::Form;
using TypeFile::forEachField;

namespace {

template <typename Value>
concept Number = std::is_arithmetic_v<Value>;

/// Sets the fields of an object under their names, in the order of its record.
class FieldSetter {
public:
    explicit FieldSetter(Json& json, std::size_t valueSize = 0)
        : m_json(json), m_valueSize(valueSize) {}

    template <typename Value, typename FieldForm>
    void operator()(const char* name, const Value& value, const FieldForm& form) {
        m_json[name] = valueOf(value, form);
    }

    void operator()(const char* name, unsigned int size, Form::ValueSize) {
        m_json[name] = size;
        m_valueSize = size;
    }

private:
    template <Number Value, typename FieldForm> Json valueOf(Value value, const FieldForm&) const {
        return value;
    }
    template <typename Text> Json valueOf(const Text& name, Form::Name) const {
        return nameToJson(name);
    }
    template <typename Enum> Json valueOf(Enum value, Form::Named) const {
        return namedToJson(value);
    }
    Json valueOf(double value, Form::Real) const { return realToJson(value); }
    Json valueOf(const FullConstraints& range, Form::Range) const { return rangeToJson(range); }
    Json valueOf(const std::vector<FullConstraints>& ranges, Form::Ranges) const {
        return rangesToJson(ranges);
    }
    Json valueOf(char* bytes, Form::Value) const { return hexOf({bytes, m_valueSize}); }

    template <typename Link> Json valueOf(unsigned int id, const Form::TypeId<Link>& form) const {
        return form.mayBeNone && id == TypeFileFormat::NO_TYPE_ID ? Json() : Json(id);
    }

    template <typename List, typename Item>
    Json valueOf(const List& list, const Form::Items<Item>& form) const {
        Json items = Json::array();
        for (const auto& item : list)
            items.push_back(valueOf(item, form.item));
        return items;
    }

    template <typename List, typename Entry>
    Json valueOf(const List& list, const Form::Entries<Entry>& form) const {
        Json entries = Json::array();
        for (std::size_t i = 0; i < list.size(); ++i) {
            Json entry = Json::object();
            forEachField(form, list, i, FieldSetter(entry, m_valueSize));
            entries.push_back(std::move(entry));
        }
        return entries;
    }

    Json& m_json;
    std::size_t m_valueSize; ///< Of the type's literals.
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
    Json json{{Field::ID, id}, {Field::KIND, kind != nullptr ? Json(kind) : Json()}};
    FieldSetter fields(json);
    forEachField(type, fields);
    TypeFile::asItsClass(type, [&](const auto& object) { forEachField(object, fields); });
    m_lines->add(json);
}

void TypeJsonWriter::noType(unsigned int id, unsigned int kindCode) {
    m_lines->add({{Field::ID, id}, {Field::KIND, JSON_NO_TYPE}, {JsonKey::KIND_CODE, kindCode}});
}

void TypeJsonWriter::end() { m_lines->end(); }

} // namespace Inspect
