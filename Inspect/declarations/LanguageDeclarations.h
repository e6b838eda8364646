#pragma once

#include "Inspect/declarations/DeclaredNames.h"
#include "Inspect/declarations/TypeNeed.h"
#include "Inspect/words/Text.h"

#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// How one language declares types. The types and the names must outlive it.
class LanguageDeclarations {
public:
    virtual ~LanguageDeclarations() = default;

    /// The language of the declarations.
    SourceLanguage language() const { return m_language; }

    /// The names used for types.
    const DeclaredNames& names() const { return m_names; }

    /// Sets the package that contains the declarations written from now on: names of types in
    /// other packages are qualified.
    void enterPackage(std::size_t package) { m_package = package; }

    /// Writes the declaration of a type, in complete lines. If the type cannot be declared, writes
    /// the closest possible declaration.
    virtual void declare(Text& out, unsigned int id) const = 0;

    /// Writes the part of a declaration before the declared name and returns the part after it,
    /// such as `logic [7:0]` and `[0:3]`. Writes only the first `most` members, literals, units or
    /// indexes, with dots for the others. Writes nothing if the declaration is more than a name for
    /// another type.
    virtual std::string define(Text& out, unsigned int id, std::size_t most) const = 0;

    /// The same in a line, cut to `MOST_CHARACTERS`: how a user of the type would write it out.
    /// Empty if it cannot be written out.
    std::string shapeOf(unsigned int id) const;

    /// The announcement of a type whose declaration follows: an incomplete type in VHDL, a forward
    /// typedef in SystemVerilog.
    virtual std::string announcementOf(unsigned int id) const = 0;

    /// Replaces `needs` with those of the declaration.
    virtual void needsOf(unsigned int id, TypeNeeds& needs) const = 0;

    /// Whether users of the type can write it out, so that it needs no declaration. A user that
    /// calls it by its name nevertheless has it among its needs.
    virtual bool isSpelledOut(unsigned int id) const = 0;

    /// Why the language cannot declare the type, judged by this type only; empty if it can. `needs`
    /// are those of the type.
    /// @{
    std::string obstacleOf(unsigned int id) const;
    std::string obstacleOf(unsigned int id, const TypeNeeds& needs) const;
    /// @}

    /// The characters that begin a comment.
    std::string_view comment() const;

    /// The largest length of a shape.
    static constexpr std::size_t MOST_CHARACTERS = 80;

protected:
    /// Keeps references to the types and the names.
    LanguageDeclarations(SourceLanguage language, const TypeTable& types,
                         const DeclaredNames& names)
        : m_language(language), m_types(types), m_names(names) {}

    /// The reasons of `obstacleOf` other than a missing type or one of another language.
    virtual std::string ownObstacleOf(unsigned int id, const TypeNeeds& needs) const = 0;

    /// Null for NO_TYPE_ID, and if there is no type with this id.
    const RTTI::RTBaseType* typeOf(unsigned int id) const {
        return id != RTTI::TypeFileFormat::NO_TYPE_ID ? m_types.typeOf(id) : nullptr;
    }

    /// What a declaration calls a type.
    Identifier nameHere(unsigned int id) const { return m_names.typeName(id, m_package); }

    /// Whether the type has no name from the design.
    bool isUnnamed(unsigned int id) const;

    /// Writes a comment line of its own.
    void remark(Text& out, std::string_view text) const;

    SourceLanguage m_language;    ///< The language that is written.
    const TypeTable& m_types;     ///< Not owned.
    const DeclaredNames& m_names; ///< Not owned.
    std::size_t m_package = 0;    ///< The package that declarations are in.
};

} // namespace Inspect
