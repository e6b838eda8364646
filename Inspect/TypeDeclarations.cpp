#include "Inspect/TypeDeclarations.h"

#include <fmt/format.h>

namespace Inspect {

const LanguageDeclarations& TypeDeclarations::in(SourceLanguage language) const {
    if (language == SourceLanguage::VHDL)
        return m_vhdl;
    return m_systemVerilog;
}

std::string TypeDeclarations::declarationOf(unsigned int id) const {
    const RTTI::RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        return {};
    const LanguageDeclarations& language = in(languageOf(*type));
    id = language.names().declaredType(id);
    std::string text = language.declarationOf(id);
    const std::string obstacle = language.obstacleOf(id);
    if (!obstacle.empty())
        text += fmt::format("{} no legal declaration: {}\n", language.comment(), obstacle);
    return text;
}

} // namespace Inspect
