#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

namespace Inspect {

/// What is wrong with a text in the JSON form, and where; `what` gives the place, then the reason.
class JsonError : public std::runtime_error {
public:
    /// The place is line and column where the text is no JSON, else a JSON pointer, with the line
    /// in front where each line is a text of its own.
    JsonError(const std::string& place, const std::string& reason)
        : std::runtime_error(place + ": " + reason) {}
};

/// Where a value stands in a text: a step, and the steps to it. It is made on the way down and
/// becomes text only for an error.
class JsonPlace {
public:
    /// A place whose text is known.
    explicit JsonPlace(std::string text) : m_text(std::move(text)) {}

    /// The value of `key` in the object at `outer`. Both are kept by reference.
    JsonPlace(const JsonPlace& outer, const char* key) : m_outer(&outer), m_key(key) {}

    /// An item of the list at `outer`, which is kept by reference.
    JsonPlace(const JsonPlace& outer, std::size_t index) : m_outer(&outer), m_index(index) {}

    /// Such as "/types/3/members/0/name".
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
