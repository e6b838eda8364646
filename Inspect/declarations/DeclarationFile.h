#pragma once

#include "Inspect/declarations/DeclarationOrder.h"

#include <cstddef>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace Inspect {

/// Whether the ids of types are written as comments above their declarations.
enum class IdComments { NONE, SHOWN };

/// Writes types as packages of one language that a compiler can read: one for each package in the
/// names of types, and one for all other types. Each type is declared after those that it needs;
/// types that the language cannot declare are written as comments. Arrays without a name that their
/// users can write out are declared only if they are needed under a name.
class DeclarationFile : private DeclarationSink {
public:
    /// Examines all types, to give them distinct names. The types must outlive the object.
    DeclarationFile(std::ostream& out, const TypeTable& types, SourceLanguage language,
                    IdComments ids);

    /// Adds a type and the types that it needs.
    void add(unsigned int id);

    /// The same, unless users of the type can write it out.
    void addUnlessSpelledOut(unsigned int id);

    /// Writes the types added so far and those that they mention.
    void end();

private:
    enum class Step : unsigned char { ANNOUNCE, DECLARE, OMIT, REMARK };

    /// What is to be written of a type.
    struct Entry {
        unsigned int id;
        Step step;
        std::size_t obstacle; ///< Its place in `m_obstacles`, for OMIT.
    };

    void announce(unsigned int id) override;
    void declare(unsigned int id) override;
    void omit(unsigned int id, std::string reason) override;

    void note(unsigned int id, Step step);
    void writePackage(std::size_t package);
    void write(const Entry& entry);
    void writeDeclaration(unsigned int id);
    void writeOmission(const Entry& entry);
    void declareBehind(std::string_view prefix, unsigned int id);

    /// Writes the comment for a type of another language, or for an id without a type.
    void writeStrangeness(unsigned int id);

    /// Writes the beginning of a comment line, and of one that says which type it is about.
    /// @{
    void beginRemark();
    void beginRemark(unsigned int id);
    /// @}

    std::ostream& m_stream;
    Text m_out;
    const TypeTable m_types;
    const IdComments m_ids;
    const DeclaredNames m_names;
    const std::unique_ptr<LanguageDeclarations> m_language;
    DeclarationOrder m_order;
    std::vector<std::vector<Entry>> m_entries; ///< Of each package.
    std::vector<std::string> m_obstacles;      ///< Of all types that are omitted.
    std::size_t m_foreignCount = 0;            ///< Types of the other language.
};

} // namespace Inspect
