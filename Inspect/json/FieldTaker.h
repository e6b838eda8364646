#pragma once

#include "RTTI/OwnedName.h"
#include "TypeFile/NamedValues.h"
#include "TypeFile/TypeFields.h"

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace Inspect {

namespace Form = TypeFile::Form;

/// Whether a field may be left out, and then has the value that it has in a new object.
template <typename FieldForm> constexpr bool isOptional(const FieldForm&) { return false; }
constexpr bool isOptional(Form::Flags) { return true; }
constexpr bool isOptional(Form::Ranges) { return true; }
constexpr bool isOptional(Form::SVTypeId) { return true; }
constexpr bool isOptional(Form::Boolean) { return true; }

inline void setText(std::string& text, std::string_view from) { text = from; }
inline void setText(char*& text, std::string_view from) {
    char* const copy = RTTI::copyOfName(from);
    delete[] std::exchange(text, copy);
}

/// Appends an object that has no values yet. The list owns it.
template <typename Entry> Entry& appendTo(std::vector<Entry>& list) { return list.emplace_back(); }
template <typename Entry, typename Base> Entry& appendTo(std::vector<Base*>& list) {
    auto entry = std::make_unique<Entry>();
    list.push_back(entry.get());
    return *entry.release();
}

/// Gives an object the values of its fields that JSON has for them: what a field's form takes, from
/// whichever reader of JSON. A reader has three classes: `Members` gives the values of an object's
/// members by name, each value the numbers and texts in it, its items and its members. What is not
/// as the form has it, the reader refuses: it throws, or answers false, and nothing more is taken.
template <typename Members> class FieldTaker {
public:
    /// Keeps a reference to `members`. `valueSize` is that of the type's literals.
    explicit FieldTaker(Members& members, std::size_t valueSize = 0)
        : m_members(members), m_valueSize(valueSize) {}

    /// Whether nothing has been refused.
    bool isGood() const { return m_isGood; }

    template <typename Value, typename FieldForm>
    void operator()(const char* name, Value& value, const FieldForm& form) {
        m_isGood = m_isGood && m_members.take(name, isOptional(form), [&](const auto& json) {
            return take(json, value, form);
        });
    }

private:
    /// The whole numbers, whatever they stand for.
    template <typename Json, std::integral Number, typename FieldForm>
    bool take(const Json& json, Number& value, const FieldForm&) const {
        return json.takeNumber(value);
    }

    template <typename Json, typename Text>
    bool take(const Json& json, Text& name, Form::Name) const {
        return json.takeName([&](std::string_view text) { setText(name, text); });
    }

    /// A number, by its name or as it is.
    template <typename Json, typename Enum>
    bool take(const Json& json, Enum& value, Form::Named) const {
        unsigned int known = 0;
        std::underlying_type_t<Enum> number = 0;
        if (!json.isText()) {
            const bool isNumber = json.takeNumber(number);
            value = static_cast<Enum>(number);
            return isNumber;
        }
        std::string_view name;
        if (!json.takeText(name))
            return false;
        const bool isKnown = TypeFile::namesOf(value).find(name, known);
        value = static_cast<Enum>(known);
        return isKnown || json.refuseWord(name);
    }

    /// A flavour above the largest would not come back from a file.
    template <typename Json>
    bool take(const Json& json, int& value, const Form::Flavour& form) const {
        return json.takeNumber(value) && (value <= form.last || json.refuseAbove(form.last));
    }

    template <typename Json> bool take(const Json& json, double& value, Form::Real) const {
        return json.takeReal(value);
    }

    template <typename Json> bool take(const Json& json, bool& value, Form::Boolean) const {
        return json.takeBoolean(value);
    }

    template <typename Json>
    bool take(const Json& json, RTTI::FullConstraints& range, Form::Range) const {
        return takeObject(json, range);
    }

    template <typename Json>
    bool take(const Json& json, std::vector<RTTI::FullConstraints>& ranges, Form::Ranges) const {
        return json.takeItems(
            [&](const auto& item) { return takeObject(item, ranges.emplace_back()); });
    }

    template <typename Json> bool take(const Json& json, unsigned int& size, Form::ValueSize) {
        const bool isNumber = json.takeNumber(size);
        m_valueSize = size;
        return isNumber;
    }

    template <typename Json> bool take(const Json& json, char*& value, Form::Value) const {
        std::string bytes;
        if (!json.takeBytes(bytes, m_valueSize))
            return false;
        value = new char[bytes.size()];
        std::copy(bytes.begin(), bytes.end(), value);
        return true;
    }

    template <typename Json, typename Link>
    bool take(const Json& json, unsigned int& id, const Form::TypeId<Link>& form) const {
        if (!form.mayBeNone || !json.takeNull())
            return json.takeNumber(id);
        id = RTTI::TypeFileFormat::NO_TYPE_ID;
        return true;
    }

    template <typename Json, typename List, typename Item>
    bool take(const Json& json, List& list, const Form::Items<Item>& form) const {
        return json.takeItems(
            [&](const auto& item) { return take(item, list.emplace_back(), form.item); });
    }

    template <typename Json, typename List, typename Entry>
    bool take(const Json& json, List& list, const Form::Entries<Entry>&) const {
        return json.takeItems(
            [&](const auto& item) { return takeObject(item, appendTo<Entry>(list)); });
    }

    template <typename Json, typename Object>
    bool takeObject(const Json& json, Object& object) const {
        return json.takeMembers([&](auto& members) {
            FieldTaker<std::remove_reference_t<decltype(members)>> fields(members, m_valueSize);
            TypeFile::forEachField(object, fields);
            return fields.isGood();
        });
    }

    Members& m_members;
    std::size_t m_valueSize; ///< Of the type's literals.
    bool m_isGood = true;
};

/// A type of a class with the fields that its JSON object has; null if there is no such class or
/// something was refused.
template <typename Members>
std::unique_ptr<RTTI::RTBaseType> typeFromMembers(unsigned int classId, Members& members) {
    std::unique_ptr<RTTI::RTBaseType> result;
    TypeFile::withClass(classId, [&](auto tag) {
        auto type = std::make_unique<typename decltype(tag)::Class>();
        FieldTaker fields(members);
        TypeFile::forEachField<RTTI::RTBaseType>(*type, fields);
        TypeFile::forEachField(*type, fields);
        if (fields.isGood())
            result = std::move(type);
    });
    return result;
}

} // namespace Inspect
