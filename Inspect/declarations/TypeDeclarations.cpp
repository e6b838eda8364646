#include "Inspect/declarations/TypeDeclarations.h"

namespace Inspect {

TypeDeclarations::TypeDeclarations(const TypeTable& types, Naming naming)
    : m_types(types), m_vhdlNames(m_types, SourceLanguage::VHDL, naming),
      m_systemVerilogNames(m_types, SourceLanguage::SYSTEM_VERILOG, naming),
      m_vhdl(m_types, m_vhdlNames), m_systemVerilog(m_types, m_systemVerilogNames) {}

const LanguageDeclarations& TypeDeclarations::in(SourceLanguage language) const {
    if (language == SourceLanguage::VHDL)
        return m_vhdl;
    return m_systemVerilog;
}

void TypeDeclarations::declare(Text& out, unsigned int id) const {
    const RTTI::RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        return;
    const LanguageDeclarations& language = in(languageOf(*type));
    id = language.names().declaredType(id);
    language.declare(out, id);
    const std::string obstacle = language.obstacleOf(id);
    if (!obstacle.empty())
        out << language.comment() << " no legal declaration: " << obstacle << '\n';
}

std::string TypeDeclarations::declarationOf(unsigned int id) const {
    return written([&](Text& out) { declare(out, id); });
}

} // namespace Inspect
