#pragma once

#include "Inspect/declarations/DeclaredNames.h"
#include "Inspect/declarations/SystemVerilogDeclarations.h"
#include "Inspect/declarations/VhdlDeclarations.h"

#include <string>

namespace Inspect {

/// The declarations of the types of a file, each in its own language.
class TypeDeclarations {
public:
    /// For distinct names the constructor examines all types; for their own names it examines none.
    TypeDeclarations(const TypeTable& types, Naming naming);
    TypeDeclarations(const TypeDeclarations&) = delete;
    TypeDeclarations& operator=(const TypeDeclarations&) = delete;

    /// Writes the declaration of a type in its own language, in complete lines that are safe for a
    /// terminal. A type that the language cannot declare gets the closest possible declaration and
    /// a comment with the reason. A typedef that has the name of its data type and adds nothing to
    /// it shares the declaration of that type. Writes nothing if there is no such type.
    void declare(Text& out, unsigned int id) const;

    /// The same declaration as text, of any length.
    std::string declarationOf(unsigned int id) const;

    /// The declarations of all types in one of the languages. Exists as long as this object.
    const LanguageDeclarations& in(SourceLanguage language) const;

private:
    TypeTable m_types;
    DeclaredNames m_vhdlNames;
    DeclaredNames m_systemVerilogNames;
    VhdlDeclarations m_vhdl;
    SystemVerilogDeclarations m_systemVerilog;
};

} // namespace Inspect
