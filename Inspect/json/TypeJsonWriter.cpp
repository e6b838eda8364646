#include "Inspect/json/TypeJsonWriter.h"

#include "Inspect/json/JsonLines.h"
#include "Inspect/json/JsonText.h"
#include "Inspect/json/JsonValues.h"
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
        m_text.member(name, size);
        m_valueSize = size;
    }

private:
    /// The whole numbers, whatever they stand for.
    template <std::integral Number, typename FieldForm>
    void write(Number value, const FieldForm&) const {
        m_text.value(value);
    }
    template <typename Text> void write(const Text& name, Form::Name) const { m_text.name(name); }
    template <typename Enum> void write(Enum value, Form::Named) const { m_text.named(value); }
    void write(const double& value, Form::Real) const { m_text.value(value); }
    void write(bool value, Form::Boolean) const { m_text.value(value); }
    void write(const FullConstraints& range, Form::Range) const { m_text.value(range); }
    void write(const std::vector<FullConstraints>& ranges, Form::Ranges) const {
        m_text.value(ranges);
    }
    void write(const char* bytes, Form::Value) const { m_text.value(hexOf({bytes, m_valueSize})); }

    template <typename Link> void write(unsigned int id, const Form::TypeId<Link>& form) const {
        if (form.mayBeNone && id == TypeFileFormat::NO_TYPE_ID)
            m_text.value(nullptr);
        else
            m_text.value(id);
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

    JsonText& m_text;
    std::size_t m_valueSize; ///< Of the type's literals.
};

} // namespace

TypeJsonWriter::TypeJsonWriter(std::ostream& out, JsonForm form, std::string_view version,
                               bool isPart)
    : m_lines(
          std::make_unique<JsonLines>(out, form, JSON_FORMAT, JsonKey::TYPES, [&](JsonText& head) {
              head.key(Field::VERSION);
              head.name(version);
              if (isPart)
                  head.member(JsonKey::IS_PART, true);
          })) {}

TypeJsonWriter::~TypeJsonWriter() = default;

void TypeJsonWriter::type(unsigned int id, const RTBaseType& type) {
    JsonText& text = m_lines->begin();
    text.member(Field::ID, id);
    text.key(Field::KIND);
    const char* kind = jsonKindOf(type.GetClassId());
    if (kind != nullptr)
        text.value(kind);
    else
        text.value(nullptr);
    FieldText fields(text);
    forEachField(type, fields);
    TypeFile::asItsClass(type, [&](const auto& object) { forEachField(object, fields); });
    m_lines->put();
}

void TypeJsonWriter::noType(unsigned int id, unsigned int kindCode) {
    JsonText& text = m_lines->begin();
    text.member(Field::ID, id);
    text.member(Field::KIND, JSON_NO_TYPE);
    text.member(JsonKey::KIND_CODE, kindCode);
    m_lines->put();
}

void TypeJsonWriter::end() { m_lines->end(); }

} // namespace Inspect
