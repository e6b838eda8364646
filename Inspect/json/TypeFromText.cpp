#include "Inspect/json/TypeFromText.h"

#include "Inspect/json/FieldTaker.h"
#include "Inspect/json/JsonCursor.h"

#include <string>

namespace Inspect {

namespace Field = TypeFile::Field;

namespace {

/// The members of an object, in the order of its record.
class TextMembers {
public:
    TextMembers(JsonCursor& text, bool isFirst) : m_text(text), m_isFirst(isFirst) {}

    template <typename Take> bool take(const char* name, bool isOptional, Take take);

private:
    JsonCursor& m_text;
    bool m_isFirst;
};

/// The value that a text goes on with.
class TextValue {
public:
    explicit TextValue(JsonCursor& text) : m_text(text) {}

    bool isText() const { return m_text.next('"'); }
    bool takeText(std::string_view& text) const { return m_text.take(text); }
    template <typename Number> bool takeNumber(Number& number) const { return m_text.take(number); }
    bool takeNull() const { return m_text.takeWord("null"); }

    template <typename Use> bool takeName(Use use) const {
        std::string_view name;
        if (!m_text.take(name))
            return false;
        use(name);
        return true;
    }

    bool takeReal(double& value) const {
        std::string_view text;
        if (isText())
            return m_text.take(text) && realFromText(text, value);
        return m_text.takeNumber(text) && realFromDigits(text, value);
    }

    bool takeBoolean(bool& value) const {
        value = m_text.takeWord("true");
        return value || m_text.takeWord("false");
    }

    bool takeBytes(std::string& bytes, std::size_t size) const {
        std::string_view digits;
        return m_text.take(digits) && bytesOfHex(digits, bytes) && bytes.size() == size;
    }

    template <typename Take> bool takeItems(Take take) const {
        if (!m_text.take('['))
            return false;
        if (m_text.take(']'))
            return true;
        do {
            if (!take(*this))
                return false;
        } while (m_text.take(','));
        return m_text.take(']');
    }

    template <typename Take> bool takeMembers(Take take) const {
        TextMembers members(m_text, true);
        return m_text.take('{') && take(members) && m_text.take('}');
    }

    // Whoever reads the text next has the words.
    bool refuseWord(std::string_view) const { return false; }
    bool refuseAbove(int) const { return false; }

private:
    JsonCursor& m_text;
};

template <typename Take> bool TextMembers::take(const char* name, bool isOptional, Take take) {
    if (!m_text.takeKey(name, m_isFirst))
        return isOptional;
    m_isFirst = false;
    return take(TextValue(m_text));
}

} // namespace

std::size_t typeFromText(std::string_view text, DescribedType& described) {
    JsonCursor cursor(text);
    std::string_view kind;
    if (!cursor.take('{') || !cursor.takeKey(Field::ID, true) || !cursor.take(described.id) ||
        !cursor.takeKey(Field::KIND, false) || !cursor.take(kind))
        return 0;
    TextMembers members(cursor, false);
    described.type = typeFromMembers(classIdOfJsonKind(kind), members);
    const bool isGood = described.type != nullptr && cursor.take('}');
    return isGood ? static_cast<std::size_t>(cursor.at() - text.data()) : 0;
}

} // namespace Inspect
