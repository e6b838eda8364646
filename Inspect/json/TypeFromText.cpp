#include "Inspect/json/TypeFromText.h"

#include "Inspect/json/EmptyFields.h"
#include "Inspect/json/JsonCursor.h"
#include "TypeFile/NamedValues.h"

#include <algorithm>
#include <concepts>
#include <memory>
#include <string>
#include <type_traits>

namespace Inspect {

using namespace RTTI;
namespace Field = TypeFile::Field;
namespace Form = TypeFile::Form;
using TypeFile::forEachField;

namespace {

/// Takes the values of an object's fields, in the order of its record, until one is not as
/// expected.
class FieldScan {
public:
    explicit FieldScan(JsonCursor& text, bool isFirst, std::size_t valueSize = 0)
        : m_text(text), m_isFirst(isFirst), m_valueSize(valueSize) {}

    /// Whether all went well so far.
    bool isGood() const { return m_isGood; }

    template <typename Value, typename FieldForm>
    void operator()(const char* name, Value& value, const FieldForm& form) {
        if (!m_isGood)
            return;
        if (m_text.takeKey(name, m_isFirst)) {
            m_isFirst = false;
            m_isGood = take(value, form);
        } else {
            m_isGood = isOptional(form);
        }
    }

private:
    /// The whole numbers, whatever they stand for.
    template <std::integral Number, typename FieldForm>
    bool take(Number& value, const FieldForm&) const {
        return m_text.take(value);
    }

    template <typename Text> bool take(Text& name, Form::Name) const {
        std::string_view text;
        if (!m_text.take(text))
            return false;
        setText(name, text);
        return true;
    }

    template <typename Enum> bool take(Enum& value, Form::Named) const {
        if (m_text.next('"')) {
            std::string_view name;
            unsigned int number = 0;
            const bool isKnown = m_text.take(name) && TypeFile::namesOf(value).find(name, number);
            value = static_cast<Enum>(number);
            return isKnown;
        }
        std::underlying_type_t<Enum> number = 0;
        const bool isNumber = m_text.take(number);
        value = static_cast<Enum>(number);
        return isNumber;
    }

    bool take(int& value, const Form::Flavour& form) const {
        return m_text.take(value) && value <= form.last;
    }

    bool take(double& value, Form::Real) const {
        std::string_view text;
        if (m_text.next('"'))
            return m_text.take(text) && realFromText(text, value);
        return m_text.takeNumber(text) && realFromDigits(text, value);
    }

    bool take(bool& value, Form::Boolean) const {
        value = m_text.takeWord("true");
        return value || m_text.takeWord("false");
    }

    bool take(FullConstraints& range, Form::Range) const { return takeObject(range); }

    bool take(std::vector<FullConstraints>& ranges, Form::Ranges) const {
        return takeItems([&] { return takeObject(ranges.emplace_back()); });
    }

    bool take(unsigned int& size, Form::ValueSize) {
        const bool isNumber = m_text.take(size);
        m_valueSize = size;
        return isNumber;
    }

    bool take(char*& value, Form::Value) const {
        std::string_view digits;
        std::string bytes;
        if (!m_text.take(digits) || !bytesOfHex(digits, bytes) || bytes.size() != m_valueSize)
            return false;
        value = new char[bytes.size()];
        std::copy(bytes.begin(), bytes.end(), value);
        return true;
    }

    template <typename Link> bool take(unsigned int& id, const Form::TypeId<Link>& form) const {
        if (!form.mayBeNone || !m_text.takeWord("null"))
            return m_text.take(id);
        id = TypeFileFormat::NO_TYPE_ID;
        return true;
    }

    template <typename List, typename Item>
    bool take(List& list, const Form::Items<Item>& form) const {
        return takeItems([&] { return take(list.emplace_back(), form.item); });
    }

    template <typename List, typename Entry>
    bool take(List& list, const Form::Entries<Entry>&) const {
        return takeItems([&] { return takeObject(appendTo<Entry>(list)); });
    }

    template <typename TakeItem> bool takeItems(TakeItem takeItem) const {
        if (!m_text.take('['))
            return false;
        if (m_text.take(']'))
            return true;
        do {
            if (!takeItem())
                return false;
        } while (m_text.take(','));
        return m_text.take(']');
    }

    template <typename Object> bool takeObject(Object& object) const {
        if (!m_text.take('{'))
            return false;
        FieldScan fields(m_text, true, m_valueSize);
        forEachField(object, fields);
        return fields.isGood() && m_text.take('}');
    }

    JsonCursor& m_text;
    bool m_isFirst;
    bool m_isGood = true;
    std::size_t m_valueSize; ///< Of the type's literals.
};

} // namespace

std::size_t typeFromText(std::string_view text, DescribedType& described) {
    JsonCursor cursor(text);
    std::string_view kind;
    if (!cursor.take('{') || !cursor.takeKey(Field::ID, true) || !cursor.take(described.id) ||
        !cursor.takeKey(Field::KIND, false) || !cursor.take(kind))
        return 0;
    bool isGood = false;
    TypeFile::withClass(classIdOfJsonKind(kind), [&](auto tag) {
        auto type = std::make_unique<typename decltype(tag)::Class>();
        FieldScan fields(cursor, false);
        forEachField<RTBaseType>(*type, fields);
        forEachField(*type, fields);
        isGood = fields.isGood() && cursor.take('}');
        described.type = std::move(type);
    });
    return isGood ? static_cast<std::size_t>(cursor.at() - text.data()) : 0;
}

} // namespace Inspect
