#include "Inspect/diff/TypeWords.h"

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/words/TypeKind.h"

namespace Inspect {

using namespace RTTI;

std::string kindWords(const TypeTable& types, unsigned int id) {
    const RTBaseType* type = id < types.count ? types.typeOf(id) : nullptr;
    return type != nullptr ? std::string(kindOf(*type)) : "no type";
}

std::string typeWords(const TypeTable& types, unsigned int id) {
    if (id == TypeFileFormat::NO_TYPE_ID)
        return "none";
    if (id >= types.count)
        return "missing type";
    const RTBaseType* type = types.typeOf(id);
    return type != nullptr ? describedType(types, id, *type, TextStyle::plain()) : "no type";
}

} // namespace Inspect
