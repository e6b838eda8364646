#include "Inspect/json/TypeJsonReader.h"

#include "Inspect/json/JsonCursor.h"
#include "Inspect/json/JsonWindow.h"
#include "Inspect/json/TypeFromText.h"
#include "TypeFile/FieldNames.h"
#include "TypeFile/WriteError.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <set>
#include <utility>

namespace Inspect {

namespace Field = TypeFile::Field;

namespace {

/// No object of the form has more keys.
constexpr std::size_t MOST_KEYS = 32;

/// No value of the form lies deeper: types, type, members, member, constraints, constraint.
constexpr int DEEPEST = 8;

/// `text` without what the parser puts in front of its messages.
std::string messageOf(const nlohmann::json::exception& error) {
    const std::string text = error.what();
    const std::size_t end = text.find("] ");
    return end != std::string::npos ? text.substr(end + 2) : text;
}

bool isBlank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

/// The number behind `word` in `text`.
std::size_t numberBehind(std::string_view word, std::string_view text) {
    std::size_t number = 0;
    const std::size_t begin = text.find(word) + word.size();
    std::from_chars(text.data() + begin, text.data() + text.size(), number);
    return number;
}

/// Splits "parse error at line 3, column 5: reason" into place and reason; `placeOf` corrects the
/// line and the column.
[[noreturn]] void refuseSyntax(const nlohmann::json::exception& error,
                               const std::function<TextPlace(TextPlace)>& placeOf,
                               const std::string& otherwise) {
    constexpr std::string_view LINE = "parse error at line ";
    constexpr std::string_view COLUMN = ", column ";
    const std::string text = messageOf(error);
    const std::size_t colon = text.find(": ", text.find(COLUMN));
    if (text.find(COLUMN) == std::string::npos || colon == std::string::npos ||
        text.compare(0, LINE.size(), LINE) != 0)
        throw JsonError(otherwise, text);
    const TextPlace place = placeOf({numberBehind(LINE, text), numberBehind(COLUMN, text)});
    throw JsonError("line " + std::to_string(place.line) + ", column " +
                        std::to_string(place.column),
                    text.substr(colon + 2));
}

/// A step of a JSON pointer, its two special characters escaped.
std::string escapedStep(std::string_view key) {
    std::string step;
    for (const char c : key)
        step += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    return step;
}

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

/// Follows a parse: where it is, and whether a key occurs twice in an object.
class PathTracker {
public:
    using Event = Json::parse_event_t;

    explicit PathTracker(std::string prefix) : m_prefix(std::move(prefix)) {}

    /// Before anything else is done about an event.
    void begin(int depth, Event event, const Json& parsed) {
        if (event == Event::key)
            enterKey(parsed.get_ref<const std::string&>());
        else if (event == Event::object_start || event == Event::array_start)
            enter(depth, event == Event::array_start);
        else if (event == Event::object_end || event == Event::array_end)
            m_levels.pop_back();
    }

    /// After everything else, once a value has ended.
    void end(Event event) {
        const bool isEnd =
            event == Event::value || event == Event::object_end || event == Event::array_end;
        if (isEnd && !m_levels.empty())
            passItem();
    }

    /// An item of the innermost list has been read by someone else.
    void passItem() { ++m_levels.back().index; }

    /// The place of the value that comes or has just ended.
    std::string text() const {
        std::string place = m_prefix;
        for (const Level& level : m_levels)
            place += '/' + (level.isArray ? std::to_string(level.index) : escapedStep(level.key));
        return place;
    }

    /// The key in the outermost object.
    const std::string& outermostKey() const { return m_levels.front().key; }

private:
    struct Level {
        bool isArray;
        std::size_t index = 0;
        std::string key;
        std::set<std::string> keys;
    };

    void enter(int depth, bool isArray) {
        if (depth > DEEPEST)
            throw JsonError(text(), "nested deeper than anything in a table of types");
        m_levels.push_back({isArray, 0, {}, {}});
    }

    void enterKey(const std::string& key) {
        m_levels.back().key = key;
        std::set<std::string>& keys = m_levels.back().keys;
        if (!keys.insert(key).second)
            throw JsonError(text(), "the key occurs twice");
        if (keys.size() > MOST_KEYS)
            throw JsonError(text(), "no object has so many keys");
    }

    std::string m_prefix;
    std::vector<Level> m_levels;
};

/// What a text says of itself before its types: which form it has, and the file's version text.
class Head {
public:
    explicit Head(const TypeJsonReader::TakeVersion& takeVersion) : m_takeVersion(takeVersion) {}

    /// Throws JsonError for what is none of its keys, or has another value than it can have.
    void take(const std::string& key, const Json& value, const std::string& place) const {
        if (key == JsonKey::FORMAT)
            require(value == JSON_FORMAT, place, JSON_FORMAT);
        else if (key == JsonKey::FORMAT_VERSION)
            require(value == JSON_FORMAT_VERSION, place, std::to_string(JSON_FORMAT_VERSION));
        else if (key == Field::VERSION)
            takeVersion(value, place);
        else if (key == JsonKey::IS_PART)
            refusePart(value, place);
        else
            throw JsonError(place, "there is no place for this key");
    }

private:
    static void require(bool isRight, const std::string& place, const std::string& expected) {
        if (!isRight)
            throw JsonError(place, "must be " + expected);
    }

    static void refusePart(const Json& value, const std::string& place) {
        if (!value.is_boolean())
            throw JsonError(place, "must be true or false");
        if (value.get<bool>())
            throw JsonError(
                place, "these are only some of a file's types, and a type file needs all of them");
    }

    void takeVersion(const Json& value, const std::string& place) const {
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
    Scan(TypeJsonReader& reader, std::string prefix)
        : m_reader(reader), m_head(reader.m_takeVersion), m_path(std::move(prefix)) {}

    /// A whole document. Types are taken as they end, and dropped at once.
    void readDocument(std::istream& in) {
        JsonWindow window(in);
        const auto onEvent = [&](int depth, Event event, Json& parsed) {
            m_path.begin(depth, event, parsed);
            const bool keeps = takeValue(depth, event, parsed);
            m_path.end(event);
            if (!keeps)
                takeTypes(window);
            return keeps;
        };
        try {
            std::istream text(&window);
            const Json head = Json::parse(text, onEvent);
            m_isWhole = head.is_object();
        } catch (const nlohmann::json::exception& error) {
            refuseSyntax(
                error, [&](TextPlace place) { return window.placeOf(place); }, m_path.text());
        }
        if (!m_isWhole || !m_hasTypes)
            throw JsonError(WHOLE, "there is no \"types\"");
    }

    /// A line of a text of lines: the head, or a type.
    void readLine(const std::string& line, std::size_t number) {
        DescribedType described;
        const std::size_t size = typeFromText(line, described);
        if (size != 0 && isBlank(std::string_view(line).substr(size))) {
            takeType(described);
            return;
        }
        const auto onEvent = [this](int depth, Event event, Json& parsed) {
            m_path.begin(depth, event, parsed);
            m_path.end(event);
            return true;
        };
        Json json;
        try {
            json = Json::parse(line, onEvent);
        } catch (const nlohmann::json::exception& error) {
            refuseSyntax(
                error,
                [&](TextPlace place) {
                    return TextPlace{number, place.column};
                },
                m_path.text());
        }
        if (!json.is_object() || !json.contains(JsonKey::FORMAT)) {
            takeType(typeFromJson(json, JsonPlace(m_path.text())));
            return;
        }
        for (const auto& [key, value] : json.items())
            m_head.take(key, value, m_path.text() + '/' + escapedStep(key));
    }

private:
    using Event = Json::parse_event_t;
    static constexpr char WHOLE[] = "the document";

    /// Whether the value is kept: types are not.
    bool takeValue(int depth, Event event, const Json& parsed) {
        if (depth == 0 && (event == Event::array_start || event == Event::value))
            throw JsonError(WHOLE, "must be an object");
        const bool isEnd =
            event == Event::value || event == Event::object_end || event == Event::array_end;
        if (!isEnd || depth == 0)
            return true;
        const bool isTypes = m_path.outermostKey() == JsonKey::TYPES;
        if (depth == 1 && isTypes) {
            m_hasTypes = true;
            if (event != Event::array_end)
                throw JsonError(m_path.text(), "must be a list");
        } else if (depth == 1) {
            m_head.take(m_path.outermostKey(), parsed, m_path.text());
        } else if (depth == 2 && isTypes) {
            takeType(typeFromJson(parsed, JsonPlace(m_path.text())));
            return false;
        }
        return true;
    }

    /// Takes what follows a type in the list as far as it is a comma and a type in the usual form.
    /// The parser finds only what is left.
    void takeTypes(JsonWindow& window) {
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
            takeType(described);
            m_path.passItem();
            window.pass(comma + size);
        }
    }

    void takeType(const DescribedType& described) {
        try {
            m_reader.m_takeType(described.id, *described.type);
        } catch (const TypeFile::WriteError& error) {
            throw JsonError(m_path.text() + pointerOf(error.field()), error.reason());
        }
        m_reader.m_typeIds.push_back(described.id);
    }

    TypeJsonReader& m_reader;
    Head m_head;
    PathTracker m_path;
    bool m_isWhole = false;
    bool m_hasTypes = false;
};

TypeJsonReader::TypeJsonReader(TakeType takeType, TakeVersion takeVersion)
    : m_takeType(std::move(takeType)), m_takeVersion(std::move(takeVersion)) {}

void TypeJsonReader::readDocument(std::istream& in) { Scan(*this, std::string()).readDocument(in); }

void TypeJsonReader::readLines(std::istream& in) {
    std::string line;
    for (std::size_t number = 1; std::getline(in, line); ++number) {
        if (isBlank(line))
            continue;
        const std::size_t typesBefore = m_typeIds.size();
        Scan(*this, "line " + std::to_string(number) + ", type").readLine(line, number);
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
                                 : "line " + std::to_string(m_lines[index]) + ", type";
    return type + pointerOf(field);
}

} // namespace Inspect
