#pragma once

#include "Inspect/json/JsonValue.h"
#include "Inspect/json/JsonWindow.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <functional>
#include <istream>
#include <string>
#include <vector>

namespace Inspect {

/// One parse of a text whose outermost value is an object. It follows where the parser is, and
/// makes values of what the parser finds. Throws JsonError for what is no JSON, for keys that come
/// twice, and for what is larger than anything in a table of types.
class JsonParse {
public:
    /// Called when a value has ended, with the number of lists and objects that it lies in.
    /// Returns whether it is wanted as a part of these.
    using AtEnd = std::function<bool(std::size_t depth, const JsonValue& value)>;

    /// Corrects the line and the column of a fault.
    using PlaceOf = std::function<TextPlace(TextPlace)>;

    /// Places begin with `prefix`; `whole` is the place of the outermost value.
    JsonParse(std::string prefix, std::string whole, AtEnd atEnd, PlaceOf placeOf);

    /// Parses a text to its end. Called once.
    template <typename Text> const JsonValue& parse(Text& text) {
        nlohmann::json::sax_parse(text, this);
        return m_root;
    }

    /// The place of the value that comes or has just ended.
    std::string place() const;

    /// The key in the outermost object.
    const std::string& outermostKey() const;

    /// An item of the innermost list has been read by someone else.
    void passItem() { ++m_open.back().index; }

    // What the parser calls.
    bool null() { return add(nullptr); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(std::int64_t value) { return add(value); }
    bool number_unsigned(std::uint64_t value) { return add(value); }
    bool number_float(double value, const std::string&) { return add(value); }
    bool string(const std::string& value) { return add(value); }
    bool binary(const nlohmann::json::binary_t&) { return false; }
    bool start_object(std::size_t) { return open(JsonObject()); }
    bool start_array(std::size_t) { return open(JsonList()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(const std::string& name);
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception& error) const;

private:
    /// A list or an object whose end is still to come.
    struct Level {
        JsonValue* value; ///< Stays where it is: lists and objects grow at their ends.
        std::size_t index = 0;
    };

    template <typename Data> bool add(const Data& data) {
        next().data = data;
        return ended();
    }

    template <typename Data> bool open(const Data& data) {
        JsonValue& value = next();
        value.data = data;
        return enter(value);
    }

    JsonValue& next();
    static JsonValue& lastOf(JsonValue& value);
    bool enter(JsonValue& value);
    bool close();
    bool ended();

    std::string m_prefix;
    std::string m_whole;
    AtEnd m_atEnd;
    PlaceOf m_placeOf;
    JsonValue m_root;
    std::vector<Level> m_open;
};

/// A step of a JSON pointer, its two special characters escaped.
std::string escapedStep(std::string_view key);

} // namespace Inspect
