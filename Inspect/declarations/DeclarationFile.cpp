#include "Inspect/declarations/DeclarationFile.h"

#include "Inspect/words/IndentedLines.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr const char* INDENTATION = "    ";

constexpr std::string_view vhdlHeading =
    "-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution\n"
    "-- functions and no ranges of physical types. A name that is taken, or missing, has the id "
    "of\n"
    "-- its type at the end.\n"
    "package types is\n";

constexpr std::string_view systemVerilogHeading =
    "// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no "
    "signs,\n"
    "// no bounds of queues, and of a class no methods, constraints and parameters. A name that "
    "is\n"
    "// taken, or missing, has the id of its type at the end.\n"
    "package types;\n";

} // namespace

DeclarationFile::DeclarationFile(std::ostream& out, const TypeTable& types, SourceLanguage language)
    : m_out(out), m_types(types), m_declarations(types, Naming::DISTINCT),
      m_language(m_declarations.in(language)), m_order(types, m_language, *this) {
    m_out << (language == SourceLanguage::VHDL ? vhdlHeading : systemVerilogHeading);
}

void DeclarationFile::add(unsigned int id) {
    const RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        remark(fmt::format("type {}: builds no type", id));
    else if (!m_language.names().isOfLanguage(id))
        remark(fmt::format("{}: {}", heading(id), nameOf(languageOf(*type))));
    else
        m_order.add(id);
}

void DeclarationFile::end() {
    m_order.finish();
    m_out << (m_language.language() == SourceLanguage::VHDL ? "end package types;\n"
                                                            : "endpackage\n");
}

void DeclarationFile::announce(unsigned int id) {
    m_out << INDENTATION << m_language.announcementOf(id);
}

void DeclarationFile::declare(unsigned int id) {
    const unsigned int declared = m_language.names().declaredType(id);
    if (m_language.names().isPredefined(id))
        return remark(heading(id) + ": predefined");
    if (declared != id)
        return remark(fmt::format("{}: declared as type {}", heading(id), declared));
    remark(heading(id));
    IndentedLines lines(m_out, INDENTATION);
    std::ostream out(&lines);
    m_language.declare(out, id);
}

void DeclarationFile::omit(unsigned int id, const std::string& reason) {
    remark(fmt::format("{} has no declaration: {}", heading(id), reason));
    IndentedLines lines(m_out, fmt::format("{}{} ", INDENTATION, m_language.comment()));
    std::ostream out(&lines);
    m_language.declare(out, id);
}

std::string DeclarationFile::heading(unsigned int id) const {
    const RTBaseType& type = *m_types.typeOf(id);
    return fmt::format("type {}: {} {}", id, kindOf(type), quotedName(type.m_name));
}

void DeclarationFile::remark(const std::string& text) {
    m_out << INDENTATION << m_language.comment() << ' ' << text << '\n';
}

} // namespace Inspect
