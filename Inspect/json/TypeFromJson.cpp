#include "Inspect/json/TypeFromJson.h"

#include "Inspect/json/EmptyFields.h"
#include "Inspect/json/JsonText.h"
#include "Inspect/words/Counted.h"
#include "TypeFile/NamedValues.h"

#include <algorithm>
#include <cstdint>
#include <limits>
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

[[noreturn]] void refuse(const JsonPlace& place, const std::string& reason) {
    throw JsonError(place.text(), reason);
}

template <typename T> T integerFrom(const JsonValue& json, const JsonPlace& place) {
    constexpr auto LOWEST = std::numeric_limits<T>::min();
    constexpr auto HIGHEST = std::numeric_limits<T>::max();
    if (const auto* number = json.get<std::uint64_t>(); number && std::in_range<T>(*number))
        return static_cast<T>(*number);
    if (const auto* number = json.get<std::int64_t>(); number && std::in_range<T>(*number))
        return static_cast<T>(*number);
    refuse(place, "must be a whole number from " + std::to_string(LOWEST) + " to " +
                      std::to_string(HIGHEST));
}

/// A word as a text of JSON has it.
std::string jsonOf(const std::string& word) {
    JsonText text;
    text.value(word);
    return std::string(text.view());
}

std::string nameFrom(const JsonValue& json, const JsonPlace& place) {
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
    ObjectFields(const JsonValue& json, const JsonPlace& place)
        : m_object(json.get<JsonObject>()), m_place(place) {
        if (m_object == nullptr)
            refuse(place, "must be an object");
    }

    const JsonValue* find(const char* key) {
        const JsonValue* value = memberOf(*m_object, key);
        if (value != nullptr)
            m_asked.push_back(key);
        return value;
    }

    const JsonValue& at(const char* key) {
        const JsonValue* json = find(key);
        if (json == nullptr)
            refuse(m_place, "there is no \"" + std::string(key) + '"');
        return *json;
    }

    JsonPlace placeOf(const char* key) const { return {m_place, key}; }

    void done() const {
        for (const auto& [key, value] : *m_object) {
            if (std::find(m_asked.begin(), m_asked.end(), key) == m_asked.end())
                refuse(m_place, "there is no place for " + jsonOf(key));
        }
    }

private:
    const JsonObject* m_object;
    const JsonPlace& m_place;
    std::vector<std::string_view> m_asked;
};

/// Calls `take(item, place)` for each item of a list.
template <typename Take>
void forEachItem(const JsonValue& json, const JsonPlace& place, Take take) {
    const auto* list = json.get<JsonList>();
    if (list == nullptr)
        refuse(place, "must be a list");
    for (std::size_t i = 0; i < list->size(); ++i)
        take((*list)[i], JsonPlace(place, i));
}

/// Takes the values of an object's fields from a JSON object, one after the other.
class FieldTaker {
public:
    explicit FieldTaker(ObjectFields& fields, std::size_t valueSize = 0)
        : m_fields(fields), m_valueSize(valueSize) {}

    template <typename Value, typename FieldForm>
    void operator()(const char* name, Value& value, const FieldForm& form) {
        const JsonValue* json = isOptional(form) ? m_fields.find(name) : &m_fields.at(name);
        if (json != nullptr)
            take(*json, m_fields.placeOf(name), value, form);
    }

private:
    /// The whole numbers, whatever they stand for.
    template <typename Number, typename FieldForm>
    void take(const JsonValue& json, const JsonPlace& place, Number& value,
              const FieldForm&) const {
        value = integerFrom<Number>(json, place);
    }

    template <typename Text>
    void take(const JsonValue& json, const JsonPlace& place, Text& name, Form::Name) const {
        setText(name, nameFrom(json, place));
    }

    /// A number, by its name or as it is.
    template <typename Enum>
    void take(const JsonValue& json, const JsonPlace& place, Enum& value, Form::Named) const {
        unsigned int number = 0;
        const auto* name = json.get<std::string>();
        if (name == nullptr)
            value = static_cast<Enum>(integerFrom<std::underlying_type_t<Enum>>(json, place));
        else if (TypeFile::namesOf(value).find(*name, number))
            value = static_cast<Enum>(number);
        else
            refuse(place, "there is no " + jsonOf(*name));
    }

    /// A flavour above the largest would not come back from a file.
    void take(const JsonValue& json, const JsonPlace& place, int& value,
              const Form::Flavour& form) const {
        value = integerFrom<int>(json, place);
        if (value > form.last)
            refuse(place, "must be at most " + std::to_string(form.last));
    }

    void take(const JsonValue& json, const JsonPlace& place, double& value, Form::Real) const {
        if (!realFromJson(json, value))
            refuse(place, "must be a number, \"Infinity\", \"-Infinity\" or the 16 hexadecimal "
                          "digits of a number");
    }

    void take(const JsonValue& json, const JsonPlace& place, bool& value, Form::Boolean) const {
        const auto* given = json.get<bool>();
        if (given == nullptr)
            refuse(place, "must be true or false");
        value = *given;
    }

    void take(const JsonValue& json, const JsonPlace& place, FullConstraints& range,
              Form::Range) const {
        takeObject(json, place, range);
    }

    void take(const JsonValue& json, const JsonPlace& place, std::vector<FullConstraints>& ranges,
              Form::Ranges) const {
        forEachItem(json, place, [&](const JsonValue& item, const JsonPlace& itemPlace) {
            takeObject(item, itemPlace, ranges.emplace_back());
        });
    }

    void take(const JsonValue& json, const JsonPlace& place, unsigned int& size, Form::ValueSize) {
        size = integerFrom<unsigned int>(json, place);
        m_valueSize = size;
    }

    void take(const JsonValue& json, const JsonPlace& place, char*& value, Form::Value) const {
        std::string bytes;
        const auto* digits = json.get<std::string>();
        if (digits == nullptr || !bytesOfHex(*digits, bytes))
            refuse(place, "must be text with two hexadecimal digits a byte");
        if (bytes.size() != m_valueSize)
            refuse(place, "the value has " + counted(bytes.size(), "byte") +
                              ", and the type's \"valueSize\" is " + std::to_string(m_valueSize));
        value = new char[bytes.size()];
        std::copy(bytes.begin(), bytes.end(), value);
    }

    template <typename Link>
    void take(const JsonValue& json, const JsonPlace& place, unsigned int& id,
              const Form::TypeId<Link>& form) const {
        id = form.mayBeNone && json.get<std::nullptr_t>() ? TypeFileFormat::NO_TYPE_ID
                                                          : integerFrom<unsigned int>(json, place);
    }

    template <typename List, typename Item>
    void take(const JsonValue& json, const JsonPlace& place, List& list,
              const Form::Items<Item>& form) const {
        forEachItem(json, place, [&](const JsonValue& item, const JsonPlace& itemPlace) {
            take(item, itemPlace, list.emplace_back(), form.item);
        });
    }

    template <typename List, typename Entry>
    void take(const JsonValue& json, const JsonPlace& place, List& list,
              const Form::Entries<Entry>&) const {
        forEachItem(json, place, [&](const JsonValue& item, const JsonPlace& itemPlace) {
            takeObject(item, itemPlace, appendTo<Entry>(list));
        });
    }

    template <typename Object>
    void takeObject(const JsonValue& json, const JsonPlace& place, Object& object) const {
        ObjectFields fields(json, place);
        forEachField(object, FieldTaker(fields, m_valueSize));
        fields.done();
    }

    ObjectFields& m_fields;
    std::size_t m_valueSize; ///< Of the type's literals.
};

} // namespace

DescribedType typeFromJson(const JsonValue& json, const JsonPlace& place) {
    ObjectFields fields(json, place);
    DescribedType described;
    described.id = integerFrom<unsigned int>(fields.at(Field::ID), fields.placeOf(Field::ID));
    const JsonValue& kind = fields.at(Field::KIND);
    const JsonPlace kindPlace = fields.placeOf(Field::KIND);
    const auto* word = kind.get<std::string>();
    if (word == nullptr)
        refuse(kindPlace, "must be text");
    if (*word == JSON_NO_TYPE)
        refuse(kindPlace, "an id without a type cannot be written");
    const unsigned int classId = classIdOfJsonKind(*word);
    const bool isKnown = TypeFile::withClass(classId, [&](auto tag) {
        auto type = std::make_unique<typename decltype(tag)::Class>();
        FieldTaker taker(fields);
        forEachField<RTBaseType>(*type, taker);
        forEachField(*type, taker);
        described.type = std::move(type);
    });
    if (!isKnown)
        refuse(kindPlace, "there is no kind " + jsonOf(*word));
    fields.done();
    return described;
}

} // namespace Inspect
