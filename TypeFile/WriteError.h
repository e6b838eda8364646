#pragma once

#include "RTTI/TypeFileFormat.h"

#include <stdexcept>
#include <string>

namespace TypeFile {

/// Where in a type something stands: a field, or a field of one item of a list.
struct FieldPlace {
    const char* field = "";
    const char* list = nullptr; ///< Null for a field of the type itself.
    std::size_t index = 0;

    /// Such as "dataType", "members[2].name" or "indexTypes[0]".
    std::string text() const;
};

/// What a type file cannot hold: which type, which field of it, and why.
class WriteError : public std::runtime_error {
public:
    /// `typeId` is 0xFFFFFFFF where the type has no id yet or the whole file is meant; `typeName`
    /// may be null.
    WriteError(unsigned int typeId, const char* typeName, std::string field,
               const std::string& reason);

    unsigned int typeId() const { return m_typeId; }
    const std::string& field() const { return m_field; }

    /// Without type and field, which `what` gives as well.
    const std::string& reason() const { return m_reason; }

private:
    unsigned int m_typeId;
    std::string m_field;
    std::string m_reason;
};

} // namespace TypeFile
