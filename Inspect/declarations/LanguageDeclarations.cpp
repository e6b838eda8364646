#include "Inspect/declarations/LanguageDeclarations.h"

#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

namespace Inspect {

using namespace RTTI;

std::string_view LanguageDeclarations::comment() const {
    return m_language == SourceLanguage::VHDL ? "--" : "//";
}

bool LanguageDeclarations::isUnnamed(unsigned int id) const {
    const RTBaseType* type = typeOf(id);
    return type != nullptr && (type->m_name == nullptr || *type->m_name == '\0');
}

std::string LanguageDeclarations::textOf(const std::vector<FullConstraints>& ranges,
                                         std::size_t first) {
    std::string text;
    for (std::size_t i = first; i < ranges.size(); ++i)
        text += (i == first ? "" : ", ") + rangeText(ranges[i]);
    return text;
}

std::string LanguageDeclarations::remark(std::string_view text) const {
    return fmt::format("{} {}\n", comment(), text);
}

std::string LanguageDeclarations::obstacleOf(unsigned int id) const {
    const RTBaseType* type = typeOf(id);
    if (type == nullptr)
        return "there is no such type";
    std::vector<TypeNeed> needs;
    needsOf(id, needs);
    for (const TypeNeed& need : needs) {
        const RTBaseType* needed = typeOf(need.typeId);
        if (need.typeId == TypeFileFormat::NO_TYPE_ID)
            return "what it is made of is not recorded";
        if (needed == nullptr)
            return fmt::format("type {} is missing", need.typeId);
        if (!m_names.isOfLanguage(need.typeId))
            return fmt::format("type {} belongs to {}", need.typeId, nameOf(languageOf(*needed)));
    }
    return ownObstacleOf(*type);
}

} // namespace Inspect
