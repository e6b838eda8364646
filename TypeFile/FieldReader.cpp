#include "TypeFile/FieldReader.h"

namespace TypeFile {

std::string nameOf(const ReadField& field) {
    std::string name;
    if (field.list != nullptr)
        name = std::string(field.list->name) + '[' + std::to_string(field.index) + "].";
    name += field.layout->name;
    if (field.item != ReadField::NO_ITEM)
        name += '[' + std::to_string(field.item) + ']';
    if (field.missingItems > 1)
        name += " to [" + std::to_string(field.item + field.missingItems - 1) + ']';
    return name;
}

std::string keyOf(const ReadField& field) {
    std::string key;
    if (field.list != nullptr)
        key = std::string(field.list->key) + '[' + std::to_string(field.index) + ']';
    const std::string own = keyOf(*field.layout);
    key += (key.empty() || own.empty() ? "" : ".") + own;
    if (field.item != ReadField::NO_ITEM)
        key += '[' + std::to_string(field.item) + ']';
    return key;
}

} // namespace TypeFile
