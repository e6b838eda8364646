#include "TypeFile/FieldReader.h"

#include "TypeFile/WriteError.h"

namespace TypeFile {

std::string nameOf(const ReadField& field) {
    const char* const list = field.list != nullptr ? field.list->name : nullptr;
    const std::string name = FieldPlace{field.layout->name, list, field.index}.text();
    return field.item != ReadField::NO_ITEM ? name + '[' + std::to_string(field.item) + ']' : name;
}

} // namespace TypeFile
