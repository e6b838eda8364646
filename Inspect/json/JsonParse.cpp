#include "Inspect/json/JsonParse.h"

#include "Inspect/json/JsonError.h"

#include <charconv>
#include <string_view>
#include <utility>

namespace Inspect {

namespace {

/// No object of the form has more keys.
constexpr std::size_t MOST_KEYS = 32;

/// No value of the form lies deeper: types, type, members, member, constraints, constraint.
constexpr std::size_t DEEPEST = 8;

/// `text` without what the parser puts in front of its messages.
std::string messageOf(const nlohmann::json::exception& error) {
    const std::string text = error.what();
    const std::size_t end = text.find("] ");
    return end != std::string::npos ? text.substr(end + 2) : text;
}

/// The number behind `word` in `text`.
std::size_t numberBehind(std::string_view word, std::string_view text) {
    std::size_t number = 0;
    const std::size_t begin = text.find(word) + word.size();
    std::from_chars(text.data() + begin, text.data() + text.size(), number);
    return number;
}

} // namespace

std::string escapedStep(std::string_view key) {
    std::string step;
    for (const char c : key)
        step += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    return step;
}

JsonParse::JsonParse(std::string prefix, std::string whole, AtEnd atEnd, PlaceOf placeOf)
    : m_prefix(std::move(prefix)), m_whole(std::move(whole)), m_atEnd(std::move(atEnd)),
      m_placeOf(std::move(placeOf)) {}

std::string JsonParse::place() const {
    std::string place = m_prefix;
    for (const Level& level : m_open) {
        const auto* object = level.value->get<JsonObject>();
        place += '/';
        if (object == nullptr)
            place += std::to_string(level.index);
        else if (!object->empty())
            place += escapedStep(object->back().first);
    }
    return place;
}

const std::string& JsonParse::outermostKey() const {
    return m_root.get<JsonObject>()->back().first;
}

bool JsonParse::key(const std::string& name) {
    auto& object = *m_open.back().value->get<JsonObject>();
    const bool isThere = memberOf(object, name) != nullptr;
    object.emplace_back(name, JsonValue());
    if (isThere)
        throw JsonError(place(), "the key occurs twice");
    if (object.size() > MOST_KEYS)
        throw JsonError(place(), "no object has so many keys");
    return true;
}

/// Splits "parse error at line 3, column 5: reason" into place and reason.
bool JsonParse::parse_error(std::size_t, const std::string&,
                            const nlohmann::json::exception& error) const {
    constexpr std::string_view LINE = "parse error at line ";
    constexpr std::string_view COLUMN = ", column ";
    const std::string text = messageOf(error);
    const std::size_t colon = text.find(": ", text.find(COLUMN));
    if (text.find(COLUMN) == std::string::npos || colon == std::string::npos ||
        text.compare(0, LINE.size(), LINE) != 0)
        throw JsonError(place(), text);
    const TextPlace place = m_placeOf({numberBehind(LINE, text), numberBehind(COLUMN, text)});
    throw JsonError("line " + std::to_string(place.line) + ", column " +
                        std::to_string(place.column),
                    text.substr(colon + 2));
}

/// Where the value goes that comes.
JsonValue& JsonParse::next() {
    if (m_open.empty())
        return m_root;
    if (auto* const list = m_open.back().value->get<JsonList>())
        list->emplace_back();
    return lastOf(*m_open.back().value);
}

/// In a list or an object that is not empty.
JsonValue& JsonParse::lastOf(JsonValue& value) {
    if (auto* const list = value.get<JsonList>())
        return list->back();
    return value.get<JsonObject>()->back().second;
}

bool JsonParse::enter(JsonValue& value) {
    if (m_open.size() > DEEPEST)
        throw JsonError(place(), "nested deeper than anything in a table of types");
    if (m_root.get<JsonObject>() == nullptr)
        throw JsonError(m_whole, "must be an object");
    m_open.push_back({&value});
    return true;
}

bool JsonParse::close() {
    m_open.pop_back();
    return ended();
}

/// The value that `next` gave is whole.
bool JsonParse::ended() {
    if (m_root.get<JsonObject>() == nullptr)
        throw JsonError(m_whole, "must be an object");
    if (m_open.empty())
        return true;
    Level& level = m_open.back();
    JsonValue& value = lastOf(*level.value);
    if (!m_atEnd(m_open.size(), value)) {
        if (auto* const list = level.value->get<JsonList>())
            list->pop_back();
        else
            value.data = nullptr;
    }
    ++level.index;
    return true;
}

} // namespace Inspect
