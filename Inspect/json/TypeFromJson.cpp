#include "Inspect/json/TypeFromJson.h"

#include "Inspect/json/FieldTaker.h"
#include "Inspect/json/JsonText.h"
#include "Inspect/words/Counted.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Inspect {

namespace Field = TypeFile::Field;

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
std::string jsonOf(std::string_view word) {
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

    template <typename Take> bool take(const char* key, bool isOptional, Take take);

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

/// A value and its place. What is refused is thrown: every answer is true.
class PlacedValue {
public:
    PlacedValue(const JsonValue& json, const JsonPlace& place) : m_json(json), m_place(place) {}

    bool isText() const { return m_json.get<std::string>() != nullptr; }
    bool takeText(std::string_view& text) const {
        text = *m_json.get<std::string>();
        return true;
    }
    bool takeNull() const { return m_json.get<std::nullptr_t>() != nullptr; }

    template <typename Number> bool takeNumber(Number& number) const {
        number = integerFrom<Number>(m_json, m_place);
        return true;
    }

    template <typename Use> bool takeName(Use use) const {
        use(nameFrom(m_json, m_place));
        return true;
    }

    bool takeReal(double& value) const {
        return realFromJson(m_json, value) ||
               refused("must be a number, \"Infinity\", \"-Infinity\" or the 16 hexadecimal "
                       "digits of a number");
    }

    bool takeBoolean(bool& value) const {
        const auto* given = m_json.get<bool>();
        value = given != nullptr && *given;
        return given != nullptr || refused("must be true or false");
    }

    bool takeBytes(std::string& bytes, std::size_t size) const {
        if (!isText() || !bytesOfHex(*m_json.get<std::string>(), bytes))
            refuse(m_place, "must be text with two hexadecimal digits a byte");
        return bytes.size() == size ||
               refused("the value has " + counted(bytes.size(), "byte") +
                       ", and the type's \"valueSize\" is " + std::to_string(size));
    }

    template <typename Take> bool takeItems(Take take) const {
        const auto* list = m_json.get<JsonList>();
        if (list == nullptr)
            refuse(m_place, "must be a list");
        for (std::size_t i = 0; i < list->size(); ++i)
            take(PlacedValue((*list)[i], JsonPlace(m_place, i)));
        return true;
    }

    template <typename Take> bool takeMembers(Take take) const {
        ObjectFields fields(m_json, m_place);
        take(fields);
        fields.done();
        return true;
    }

    bool refuseWord(std::string_view word) const { return refused("there is no " + jsonOf(word)); }
    bool refuseAbove(int last) const { return refused("must be at most " + std::to_string(last)); }

private:
    [[noreturn]] bool refused(const std::string& reason) const { refuse(m_place, reason); }

    const JsonValue& m_json;
    const JsonPlace& m_place;
};

template <typename Take> bool ObjectFields::take(const char* key, bool isOptional, Take take) {
    const JsonValue* json = isOptional ? find(key) : &at(key);
    return json == nullptr || take(PlacedValue(*json, placeOf(key)));
}

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
    if (classId == 0)
        refuse(kindPlace, "there is no kind " + jsonOf(*word));
    described.type = typeFromMembers(classId, fields);
    fields.done();
    return described;
}

} // namespace Inspect
