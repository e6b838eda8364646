#pragma once

#include "RTTI/TypeFileFormat.h"

#include <stdexcept>
#include <string>

namespace TypeFile {

/// A place in a type: a field, or a field of one item of a list.
struct FieldPlace {
    const char* field = "";     ///< Empty if it is the whole item.
    const char* list = nullptr; ///< Null if it is a field of the type itself.
    std::size_t index = 0;      ///< The index of the item in the list, from 0.

    /// The place as text, such as "dataType", "members[2].name" or "indexTypes[0]".
    std::string text() const;
};

/// Thrown for something that a type file cannot hold. Gives the type, the field and the reason.
class WriteError : public std::runtime_error {
public:
    /// `typeId` is 0xFFFFFFFF if the type has no id yet or the error concerns the whole file;
    /// `typeName` may be null.
    WriteError(unsigned int typeId, const char* typeName, std::string field,
               const std::string& reason);

    /// The id of the type; 0xFFFFFFFF means none.
    unsigned int typeId() const { return m_typeId; }

    /// The field, such as "members[2].name"; empty if it is the whole type or file.
    const std::string& field() const { return m_field; }

    /// The reason. `what` also gives the type and the field.
    const std::string& reason() const { return m_reason; }

private:
    unsigned int m_typeId;
    std::string m_field;
    std::string m_reason;
};

} // namespace TypeFile
