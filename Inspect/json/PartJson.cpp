#include "Inspect/json/PartJson.h"

#include "Inspect/words/TypeKind.h"

namespace Inspect {

using namespace RTTI;

const char* jsonRoleOf(LinkRole role) {
    static constexpr const char* words[] = {"aliasedType", "baseType", "designatedType",
                                            "fileElement", "element",  "indexType",
                                            "baseClass",   "member"};
    return words[static_cast<int>(role)];
}

Json typeToJson(unsigned int id, const RTBaseType* type) {
    Json json{{"id", id != TypeFileFormat::NO_TYPE_ID ? Json(id) : Json()}};
    json["kind"] = type != nullptr ? Json(kindOf(*type)) : Json();
    json["name"] = type != nullptr ? nameToJson(type->m_name) : Json();
    return json;
}

} // namespace Inspect
