#include "Inspect/diff/TypeWords.h"

#include "Inspect/diff/TypeShape.h"
#include "Inspect/model/TypeReferences.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <string_view>

namespace Inspect {

using namespace RTTI;

namespace {

/// So many types without names are told one inside the other.
constexpr int DEPTH_LIMIT = 8;

/// The ranges of an array or a typedef, empty where there are none.
std::string ownRanges(const TypeShape& shape) {
    for (std::size_t i = 0; i < shape.ownFieldsEnd(); ++i) {
        const FieldValue& value = shape.fields[i].value;
        const auto* ranges = std::get_if<const std::vector<FullConstraints>*>(&value);
        if (ranges != nullptr && !(*ranges)->empty())
            return (*ranges)->size() == 1 ? fmt::format(" ({})", fieldText(value))
                                          : fmt::format(" {}", fieldText(value));
    }
    return "";
}

bool isMadeOfOneType(unsigned int classId) {
    return classId == ClassId::TYPEDEF || classId == ClassId::ACCESS ||
           classId == ClassId::FILE_TYPE || classId == ClassId::ARRAY ||
           classId == ClassId::DYNAMIC_ARRAY || classId == ClassId::QUEUE ||
           classId == ClassId::ASSOC_ARRAY;
}

} // namespace

bool isGivenName(const char* name) { return name != nullptr && *name != '\0' && *name != '<'; }

std::string kindWords(const TypeTable& types, unsigned int id) {
    const RTBaseType* type = id < types.count ? types.typeOf(id) : nullptr;
    return type != nullptr ? std::string(kindOf(*type)) : "no type";
}

std::string typeWords(const TypeTable& types, unsigned int id) {
    std::string words;
    std::vector<TypeLink> links;
    for (int depth = 0;; ++depth) {
        if (id == TypeFileFormat::NO_TYPE_ID)
            return words + "none";
        if (id >= types.count)
            return words + "missing type";
        words += kindWords(types, id);
        const RTBaseType* type = types.typeOf(id);
        if (type == nullptr)
            return words;
        if (isGivenName(type->m_name))
            return fmt::format("{} {}", words, quotedName(type->m_name));
        if (isMadeOfOneType(type->GetClassId()))
            linksOf(*type, links);
        else
            links.clear();
        if (links.empty() || depth == DEPTH_LIMIT)
            return words;
        words += ownRanges(TypeShape(*type)) + " of ";
        id = links[0].typeId;
    }
}

} // namespace Inspect
