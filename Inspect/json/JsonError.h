#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace Inspect {

/// Thrown for a fault in a text in the JSON form; `what` gives the place, then the reason.
class JsonError : public std::runtime_error {
public:
    /// The place is a line and column if the text is not JSON, else a JSON pointer. In the line
    /// form, the line number precedes it.
    JsonError(const std::string& place, const std::string& reason)
        : std::runtime_error(place + ": " + reason), m_place(place), m_reason(reason) {}

    /// The place without the reason.
    const std::string& place() const { return m_place; }

    /// The reason without the place.
    const std::string& reason() const { return m_reason; }

private:
    std::string m_place;
    std::string m_reason;
};

/// The place of a value in a text, as a chain of steps. It is built on the way down and becomes
/// text only if there is an error.
class JsonPlace {
public:
    /// A place with a known text.
    explicit JsonPlace(std::string text) : m_text(std::move(text)) {}

    /// The place of the value of `key` in the object at `outer`. Keeps references to both.
    JsonPlace(const JsonPlace& outer, const char* key) : m_outer(&outer), m_key(key) {}

    /// The place of an item of the list at `outer`. Keeps a reference to `outer`.
    JsonPlace(const JsonPlace& outer, std::size_t index) : m_outer(&outer), m_index(index) {}

    /// The place as text, such as "/types/3/members/0/name".
    std::string text() const {
        if (m_outer == nullptr)
            return m_text;
        return m_outer->text() + '/' + (m_key != nullptr ? m_key : std::to_string(m_index));
    }

private:
    const JsonPlace* m_outer = nullptr;
    const char* m_key = nullptr;
    std::size_t m_index = 0;
    std::string m_text;
};

} // namespace Inspect
