#include "Inspect/json/TypeJsonWriter.h"

#include "Inspect/json/JsonLines.h"
#include "Inspect/json/JsonText.h"
#include "TypeFile/TypeFields.h"

#include <concepts>
#include <type_traits>
#include <vector>

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;
namespace Form = TypeFile::Form;
using TypeFile::forEachField;

namespace {

/// Writes the fields of an object under their names, in the order of its record.
class FieldText {
public:
    explicit FieldText(JsonText& text, std::size_t valueSize = 0)
        : m_text(text), m_valueSize(valueSize) {}

    template <typename Value, typename FieldForm>
    void operator()(const char* name, const Value& value, const FieldForm& form) {
        m_text.key(name);
        write(value, form);
    }

    void operator()(const char* name, unsigned int size, Form::ValueSize) {
        m_text.key(name);
        m_text.number(size);
        m_valueSize = size;
    }

private:
    /// The whole numbers, whatever they stand for.
    template <std::integral Number, typename FieldForm>
    void write(Number value, const FieldForm&) const {
        m_text.number(value);
    }
    template <typename Text> void write(const Text& name, Form::Name) const { m_text.name(name); }
    template <typename Enum> void write(Enum value, Form::Named) const {
        const char* name = TypeFile::namesOf(value).nameOf(static_cast<unsigned int>(value));
        if (name != nullptr)
            m_text.name(name);
        else
            m_text.number(static_cast<std::underlying_type_t<Enum>>(value));
    }
    void write(double value, Form::Real) const { m_text.value(realToJson(value)); }
    void write(bool value, Form::Boolean) const { m_text.boolean(value); }
    void write(const FullConstraints& range, Form::Range) const { object(range); }
    void write(const std::vector<FullConstraints>& ranges, Form::Ranges) const {
        m_text.openList();
        for (const FullConstraints& range : ranges)
            object(range);
        m_text.closeList();
    }
    void write(const char* bytes, Form::Value) const { m_text.name(hexOf({bytes, m_valueSize})); }

    template <typename Link> void write(unsigned int id, const Form::TypeId<Link>& form) const {
        if (form.mayBeNone && id == TypeFileFormat::NO_TYPE_ID)
            m_text.null();
        else
            m_text.number(id);
    }

    template <typename List, typename Item>
    void write(const List& list, const Form::Items<Item>& form) const {
        m_text.openList();
        for (const auto& item : list)
            write(item, form.item);
        m_text.closeList();
    }

    template <typename List, typename Entry>
    void write(const List& list, const Form::Entries<Entry>& form) const {
        m_text.openList();
        for (std::size_t i = 0; i < list.size(); ++i) {
            m_text.openObject();
            forEachField(form, list, i, FieldText(m_text, m_valueSize));
            m_text.closeObject();
        }
        m_text.closeList();
    }

    template <typename Object> void object(const Object& object) const {
        m_text.openObject();
        forEachField(object, FieldText(m_text));
        m_text.closeObject();
    }

    JsonText& m_text;
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
    JsonText& text = m_lines->begin();
    text.openObject();
    text.key(Field::ID);
    text.number(id);
    text.key(Field::KIND);
    const char* kind = jsonKindOf(type.GetClassId());
    if (kind != nullptr)
        text.name(kind);
    else
        text.null();
    FieldText fields(text);
    forEachField(type, fields);
    TypeFile::asItsClass(type, [&](const auto& object) { forEachField(object, fields); });
    text.closeObject();
    m_lines->put();
}

void TypeJsonWriter::noType(unsigned int id, unsigned int kindCode) {
    m_lines->add({{Field::ID, id}, {Field::KIND, JSON_NO_TYPE}, {JsonKey::KIND_CODE, kindCode}});
}

void TypeJsonWriter::end() { m_lines->end(); }

} // namespace Inspect
