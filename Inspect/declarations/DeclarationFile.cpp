#include "Inspect/declarations/DeclarationFile.h"

#include "Inspect/declarations/SystemVerilogDeclarations.h"
#include "Inspect/declarations/VhdlDeclarations.h"
#include "Inspect/words/IndentedLines.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr const char* INDENTATION = "    ";

constexpr std::string_view vhdlHeading =
    "-- Types of a type file, declared in VHDL (IEEE 1076-2008). A type file has no resolution\n"
    "-- functions and no ranges of physical types. A name that is taken, or missing, has the id "
    "of\n"
    "-- its type at the end.\n";

constexpr std::string_view systemVerilogHeading =
    "// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no "
    "signs,\n"
    "// no bounds of queues, and of a class no methods, constraints and parameters. A name that "
    "is\n"
    "// taken, or missing, has the id of its type at the end.\n";

std::unique_ptr<LanguageDeclarations>
declarationsIn(SourceLanguage language, const TypeTable& types, const DeclaredNames& names) {
    if (language == SourceLanguage::VHDL)
        return std::make_unique<VhdlDeclarations>(types, names);
    return std::make_unique<SystemVerilogDeclarations>(types, names);
}

} // namespace

DeclarationFile::DeclarationFile(std::ostream& out, const TypeTable& types, SourceLanguage language,
                                 IdComments ids)
    : m_stream(out), m_out(out), m_types(types), m_ids(ids),
      m_names(m_types, language, Naming::PACKAGES),
      m_language(declarationsIn(language, m_types, m_names)), m_order(m_types, *m_language, *this),
      m_entries(m_names.packages().count()) {}

void DeclarationFile::add(unsigned int id) {
    if (m_names.isOfLanguage(id))
        return m_order.add(id);
    m_foreignCount += m_types.typeOf(id) != nullptr ? 1 : 0;
    if (m_ids == IdComments::SHOWN)
        m_entries.back().push_back({id, Step::REMARK, 0});
}

void DeclarationFile::addUnlessSpelledOut(unsigned int id) {
    if (!m_names.isOfLanguage(id) || !m_language->isSpelledOut(id))
        add(id);
}

void DeclarationFile::end() {
    m_order.finish();
    const bool isVhdl = m_language->language() == SourceLanguage::VHDL;
    m_out << (isVhdl ? vhdlHeading : systemVerilogHeading);
    if (m_foreignCount != 0 && m_ids == IdComments::NONE)
        m_out << m_language->comment() << ' '
              << (m_foreignCount == 1 ? "A type" : fmt::format("{} types", m_foreignCount))
              << " of the other language " << (m_foreignCount == 1 ? "is" : "are")
              << " left out.\n";
    const bool isEmpty = std::all_of(m_entries.begin(), m_entries.end(),
                                     [](const auto& entries) { return entries.empty(); });
    for (std::size_t package = 0; package < m_entries.size() && m_stream; ++package) {
        if (!m_entries[package].empty() || (isEmpty && package + 1 == m_entries.size()))
            writePackage(package);
    }
    m_out.flush();
}

void DeclarationFile::writePackage(std::size_t package) {
    const std::string& name = m_names.packages().nameOf(package);
    const bool isVhdl = m_language->language() == SourceLanguage::VHDL;
    m_language->enterPackage(package);
    m_out << (isVhdl ? fmt::format("package {} is\n", name) : fmt::format("\npackage {};\n", name));
    for (const Entry& entry : m_entries[package])
        write(entry);
    m_out << (isVhdl ? fmt::format("end package {};\n", name) : "endpackage\n");
}

void DeclarationFile::write(const Entry& entry) {
    switch (entry.step) {
    case Step::ANNOUNCE: m_out << INDENTATION << m_language->announcementOf(entry.id); return;
    case Step::DECLARE: return writeDeclaration(entry.id);
    case Step::OMIT: return writeOmission(entry);
    case Step::REMARK: return writeStrangeness(entry.id);
    }
}

void DeclarationFile::writeDeclaration(unsigned int id) {
    const unsigned int declared = m_names.declaredType(id);
    const bool isPredefined = m_names.isPredefined(id);
    if (m_ids == IdComments::SHOWN) {
        beginRemark(id);
        if (isPredefined)
            m_out << ": predefined";
        else if (declared != id)
            m_out << ": declared as type " << declared;
        m_out << '\n';
    }
    if (isPredefined || declared != id)
        return;
    if (m_names.packages().isAway(id)) {
        beginRemark();
        m_out << "Declared here and not in its own package, as it needs types of this one:\n";
    }
    declareBehind(INDENTATION, id);
}

void DeclarationFile::writeOmission(const Entry& entry) {
    beginRemark(entry.id);
    m_out << " has no declaration: " << m_obstacles[entry.obstacle] << '\n';
    const bool isVhdl = m_language->language() == SourceLanguage::VHDL;
    declareBehind(isVhdl ? "    -- " : "    // ", entry.id);
}

/// Each line behind the prefix.
void DeclarationFile::declareBehind(std::string_view prefix, unsigned int id) {
    IndentedLines lines(m_out, prefix);
    m_language->declare(m_out, id);
    lines.end();
}

void DeclarationFile::writeStrangeness(unsigned int id) {
    beginRemark(id);
    const RTBaseType* type = m_types.typeOf(id);
    m_out << ": " << (type != nullptr ? nameOf(languageOf(*type)) : "builds no type") << '\n';
}

void DeclarationFile::note(unsigned int id, Step step) {
    m_entries[m_names.packages().packageOf(id)].push_back({id, step, m_obstacles.size()});
}

void DeclarationFile::announce(unsigned int id) { note(id, Step::ANNOUNCE); }

void DeclarationFile::declare(unsigned int id) {
    const bool isDeclaration = !m_names.isPredefined(id) && m_names.declaredType(id) == id;
    if (isDeclaration || m_ids == IdComments::SHOWN)
        note(id, Step::DECLARE);
}

void DeclarationFile::omit(unsigned int id, std::string reason) {
    note(id, Step::OMIT);
    m_obstacles.push_back(std::move(reason));
}

void DeclarationFile::beginRemark() { m_out << INDENTATION << m_language->comment() << ' '; }

void DeclarationFile::beginRemark(unsigned int id) {
    beginRemark();
    m_out << "type " << id;
    const RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        return;
    m_out << ": " << kindOf(*type) << ' ';
    writeQuotedName(m_out, type->m_name);
}

} // namespace Inspect
