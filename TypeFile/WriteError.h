#pragma once

#include "RTTI/TypeFileFormat.h"

#include <stdexcept>
#include <string>

namespace TypeFile {

/// Where in a type something stands: a field, or a field of one item of a list.
struct FieldPlace {
    const char* field = "";     ///< Empty for the whole item.
    const char* list = nullptr; ///< Null for a field of the type itself.
    std::size_t index = 0;      ///< Of the item in the list, from 0.

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

    /// 0xFFFFFFFF for none.
    unsigned int typeId() const { return m_typeId; }

    /// Such as "members[2].name"; empty for the whole type or file.
    const std::string& field() const { return m_field; }

    /// Without type and field, which `what` gives as well.
    const std::string& reason() const { return m_reason; }

private:
    unsigned int m_typeId;
    std::string m_field;
    std::string m_reason;
};

} // namespace TypeFile
