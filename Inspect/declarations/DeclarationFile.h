#pragma once

#include "Inspect/declarations/DeclarationOrder.h"
#include "Inspect/declarations/TypeDeclarations.h"

#include <ostream>

namespace Inspect {

/// Writes types as a package of one language that a compiler reads. Each type is declared after
/// those that it needs, under a comment with its id; what the language has no declaration for
/// stands in comments.
class DeclarationFile : private DeclarationSink {
public:
    /// Looks at all types, to tell their names apart. The table must outlive the file.
    DeclarationFile(std::ostream& out, const TypeTable& types, SourceLanguage language);

    /// Writes a type and, before it, what it needs, unless they are there already.
    void add(unsigned int id);

    /// Writes what the types added so far only mention, and the end of the package.
    void end();

private:
    void announce(unsigned int id) override;
    void declare(unsigned int id) override;
    void omit(unsigned int id, const std::string& reason) override;

    std::string heading(unsigned int id) const;

    /// Writes a line of comment.
    void remark(const std::string& text);

    std::ostream& m_out;
    const TypeTable& m_types;
    TypeDeclarations m_declarations;
    const LanguageDeclarations& m_language;
    DeclarationOrder m_order;
};

} // namespace Inspect
