#pragma once

#include <stdexcept>
#include <string>

namespace Inspect {

/// What is wrong with a text in the JSON form, and where; `what` gives the place, then the reason.
class JsonError : public std::runtime_error {
public:
    /// The place is line and column where the text is no JSON, else a JSON pointer, with the line
    /// in front where each line is a text of its own.
    JsonError(const std::string& place, const std::string& reason)
        : std::runtime_error(place + ": " + reason) {}
};

/// Where a value stands in a text: the steps to it, outermost last. It is made on the way down and
/// becomes text only for an error.
class JsonPlace {
public:
    /// The root of the text; `prefix` stands in front of every pointer.
    explicit JsonPlace(std::string prefix) : m_prefix(std::move(prefix)) {}
    JsonPlace(const JsonPlace& outer, const char* key) : m_outer(&outer), m_key(key) {}
    JsonPlace(const JsonPlace& outer, std::size_t index) : m_outer(&outer), m_index(index) {}

    /// Such as "/types/3/members/0/name".
    std::string text() const {
        if (m_outer == nullptr)
            return m_prefix;
        return m_outer->text() + '/' + (m_key != nullptr ? m_key : std::to_string(m_index));
    }

private:
    const JsonPlace* m_outer = nullptr;
    const char* m_key = nullptr;
    std::size_t m_index = 0;
    std::string m_prefix;
};

} // namespace Inspect
