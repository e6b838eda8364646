#pragma once

#include "Inspect/declarations/DeclaredNames.h"
#include "Inspect/declarations/SystemVerilogDeclarations.h"
#include "Inspect/declarations/VhdlDeclarations.h"

#include <string>

namespace Inspect {

/// The declarations of the types of a file, each in its own language and asked for one by one.
class TypeDeclarations {
public:
    /// With distinct names all types are looked at now; with their own names nothing is.
    TypeDeclarations(const TypeTable& types, Naming naming);
    TypeDeclarations(const TypeDeclarations&) = delete;
    TypeDeclarations& operator=(const TypeDeclarations&) = delete;

    /// Writes the declaration of a type in its own language, in lines that each have their end; it
    /// is safe for a terminal. Types that the language has no declaration for get the next best
    /// one, and a comment that says why. A typedef of the same name as its data type that adds
    /// nothing to it shares that type's declaration. Writes nothing where there is no type.
    void declare(std::ostream& out, unsigned int id) const;

    /// The same as text, as long as the type takes.
    std::string declarationOf(unsigned int id) const;

    /// How one of the languages declares the types, all of them; lives as long as this object.
    const LanguageDeclarations& in(SourceLanguage language) const;

private:
    TypeTable m_types;
    DeclaredNames m_vhdlNames;
    DeclaredNames m_systemVerilogNames;
    VhdlDeclarations m_vhdl;
    SystemVerilogDeclarations m_systemVerilog;
};

} // namespace Inspect
