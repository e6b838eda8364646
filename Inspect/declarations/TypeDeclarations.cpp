#include "Inspect/declarations/TypeDeclarations.h"

#include <sstream>

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

void TypeDeclarations::declare(std::ostream& out, unsigned int id) const {
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
    std::ostringstream out;
    out.exceptions(std::ios::badbit); // Else memory that runs out would cut the text.
    declare(out, id);
    return out.str();
}

} // namespace Inspect
