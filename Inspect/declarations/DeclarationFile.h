#pragma once

#include "Inspect/declarations/DeclarationOrder.h"
#include "Inspect/declarations/TypeDeclarations.h"

#include <ostream>

namespace Inspect {

/// Writes types as a package of one language that a compiler can read. Each type is declared after
/// those that it needs, below a comment with its id; types that the language cannot declare are
/// written as comments.
class DeclarationFile : private DeclarationSink {
public:
    /// Examines all types, to give them distinct names. The table must outlive the object.
    DeclarationFile(std::ostream& out, const TypeTable& types, SourceLanguage language);

    /// Writes a type and, before it, the types that it needs, unless already written.
    void add(unsigned int id);

    /// Writes types that have only been announced so far, and the end of the package.
    void end();

private:
    void announce(unsigned int id) override;
    void declare(unsigned int id) override;
    void omit(unsigned int id, const std::string& reason) override;

    std::string heading(unsigned int id) const;

    /// Writes a comment line.
    void remark(const std::string& text);

    std::ostream& m_out;
    const TypeTable& m_types;
    TypeDeclarations m_declarations;
    const LanguageDeclarations& m_language;
    DeclarationOrder m_order;
};

} // namespace Inspect
