#include "Inspect/json/TypeJsonReader.h"

#include "Inspect/json/JsonCursor.h"
#include "Inspect/json/JsonParse.h"
#include "Inspect/json/JsonWindow.h"
#include "Inspect/json/TypeFromText.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/WriteError.h"

#include <algorithm>
#include <utility>

namespace Inspect {

namespace Field = TypeFile::Field;

namespace {

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

/// The next line without its end, as soon as it is there; false at the end of the text. Unlike
/// `std::getline` it lets what the text throws pass.
bool nextLine(std::streambuf& text, std::string& line) {
    using Traits = std::streambuf::traits_type;
    line.clear();
    for (int c = text.sbumpc(); !Traits::eq_int_type(c, Traits::eof()); c = text.sbumpc()) {
        if (c == '\n')
            return true;
        line += Traits::to_char_type(c);
    }
    return !line.empty();
}

/// The place of what a line has.
std::string placeOfLine(std::size_t number) { return "line " + std::to_string(number) + ", type"; }

/// The pointer from a type to a field of it, such as "/members/2/name" for "members[2].name".
std::string pointerOf(std::string_view field) {
    std::string pointer = "/";
    for (const char c : field) {
        if (c == '[' || c == '.')
            pointer += '/';
        else if (c != ']')
            pointer += c;
    }
    return pointer;
}

/// What a text says of itself before its types: which form it has, and the file's version text.
class Head {
public:
    explicit Head(const TypeJsonReader::TakeVersion& takeVersion) : m_takeVersion(takeVersion) {}

    /// Throws JsonError for what is none of its keys, or has another value than it can have.
    void take(const std::string& key, const JsonValue& value, const std::string& place) const {
        if (key == JsonKey::FORMAT)
            takeFormat(value, place);
        else if (key == JsonKey::FORMAT_VERSION)
            takeFormatVersion(value, place);
        else if (key == Field::VERSION)
            takeVersion(value, place);
        else if (key == JsonKey::IS_PART)
            refusePart(value, place);
        else
            throw JsonError(place, "there is no place for this key");
    }

private:
    static void takeFormat(const JsonValue& value, const std::string& place) {
        const auto* format = value.get<std::string>();
        if (format == nullptr || *format != JSON_FORMAT)
            throw JsonError(place, std::string("must be ") + JSON_FORMAT);
    }

    static void takeFormatVersion(const JsonValue& value, const std::string& place) {
        double version = 0;
        if (!realFromJson(value, version) || version != JSON_FORMAT_VERSION)
            throw JsonError(place, "must be " + std::to_string(JSON_FORMAT_VERSION));
    }

    static void refusePart(const JsonValue& value, const std::string& place) {
        const auto* isPart = value.get<bool>();
        if (isPart == nullptr)
            throw JsonError(place, "must be true or false");
        if (*isPart)
            throw JsonError(
                place, "these are only some of a file's types, and a type file needs all of them");
    }

    void takeVersion(const JsonValue& value, const std::string& place) const {
        std::string version;
        if (!nameFromJson(value, version))
            throw JsonError(place, NAME_FORMS);
        try {
            m_takeVersion(version);
        } catch (const TypeFile::WriteError& error) {
            throw JsonError(place, error.reason());
        }
    }

    const TypeJsonReader::TakeVersion& m_takeVersion;
};

} // namespace

/// One text, read to its end.
class TypeJsonReader::Scan {
public:
    explicit Scan(TypeJsonReader& reader) : m_reader(reader), m_head(reader.m_takeVersion) {}

    /// A whole document. Types are taken as they end, and dropped at once.
    void readDocument(std::istream& in) {
        constexpr char WHOLE[] = "the document";
        JsonWindow window(in);
        JsonParse parse(
            "", WHOLE,
            [&](std::size_t depth, const JsonValue& value) {
                return takeValue(parse, depth, value, window);
            },
            [&](TextPlace place) { return window.placeOf(place); });
        std::istream text(&window);
        parse.parse(text);
        if (!m_hasTypes)
            throw JsonError(WHOLE, "there is no \"types\"");
    }

    /// A line of a text of lines: the head, or a type.
    void readLine(const std::string& line, std::size_t number) {
        const auto place = [&] { return placeOfLine(number); };
        DescribedType described;
        const std::size_t size = typeFromText(line, described);
        if (size != 0 && isBlank(std::string_view(line).substr(size))) {
            takeType(described, place);
            return;
        }
        JsonParse parse(
            place(), place(), [](std::size_t, const JsonValue&) { return true; },
            [&](TextPlace inLine) {
                return TextPlace{number, inLine.column};
            });
        const JsonValue& whole = parse.parse(line);
        const auto& object = *whole.get<JsonObject>();
        if (memberOf(object, JsonKey::FORMAT) == nullptr) {
            takeType(typeFromJson(whole, JsonPlace(place())), place);
            return;
        }
        for (const auto& [key, value] : object)
            m_head.take(key, value, place() + '/' + escapedStep(key));
    }

private:
    /// Whether the value is kept as a part of what is around it.
    bool takeValue(JsonParse& parse, std::size_t depth, const JsonValue& value,
                   JsonWindow& window) {
        const bool isTypes = parse.outermostKey() == JsonKey::TYPES;
        if (depth == 1 && isTypes) {
            m_hasTypes = true;
            if (value.get<JsonList>() == nullptr)
                throw JsonError(parse.place(), "must be a list");
        } else if (depth == 1) {
            m_head.take(parse.outermostKey(), value, parse.place());
        } else if (depth == 2 && isTypes) {
            takeType(typeFromJson(value, JsonPlace(parse.place())), [&] { return parse.place(); });
            takeTypes(parse, window);
        }
        return depth > 2 || !isTypes;
    }

    /// Takes what follows a type in the list as far as it is a comma and a type in the usual form.
    /// The parser finds only what is left.
    void takeTypes(JsonParse& parse, JsonWindow& window) {
        for (;;) {
            const std::string_view text = window.ahead();
            JsonCursor cursor(text);
            if (!cursor.take(','))
                return;
            const auto comma = static_cast<std::size_t>(cursor.at() - text.data());
            DescribedType described;
            const std::size_t size = typeFromText(text.substr(comma), described);
            if (size == 0)
                return;
            parse.passItem();
            takeType(described, [&] { return parse.place(); });
            window.pass(comma + size);
        }
    }

    template <typename PlaceOfType>
    void takeType(const DescribedType& described, PlaceOfType place) {
        try {
            m_reader.m_takeType(described.id, *described.type);
        } catch (const TypeFile::WriteError& error) {
            throw JsonError(place() + pointerOf(error.field()), error.reason());
        }
        m_reader.m_typeIds.push_back(described.id);
    }

    TypeJsonReader& m_reader;
    Head m_head;
    bool m_hasTypes = false;
};

TypeJsonReader::TypeJsonReader(TakeType takeType, TakeVersion takeVersion)
    : m_takeType(std::move(takeType)), m_takeVersion(std::move(takeVersion)) {}

void TypeJsonReader::readDocument(std::istream& in) { Scan(*this).readDocument(in); }

void TypeJsonReader::readLines(std::istream& in) {
    std::string line;
    for (std::size_t number = 1; nextLine(*in.rdbuf(), line); ++number) {
        if (isBlank(line))
            continue;
        const std::size_t typesBefore = m_typeIds.size();
        Scan(*this).readLine(line, number);
        if (m_typeIds.size() != typesBefore)
            m_lines.push_back(number);
    }
}

std::string TypeJsonReader::placeOf(unsigned int typeId, const std::string& field) const {
    const auto last = std::find(m_typeIds.rbegin(), m_typeIds.rend(), typeId);
    if (last == m_typeIds.rend())
        return std::string("/") + JsonKey::TYPES;
    const auto index = static_cast<std::size_t>(m_typeIds.rend() - last) - 1;
    const std::string type = m_lines.empty()
                                 ? std::string("/") + JsonKey::TYPES + '/' + std::to_string(index)
                                 : placeOfLine(m_lines[index]);
    return type + pointerOf(field);
}

} // namespace Inspect
