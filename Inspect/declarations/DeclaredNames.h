#pragma once

#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// How declarations call types.
enum class Naming {
    OWN,     ///< By the names that they have: nothing is looked at in advance.
    DISTINCT ///< By names that differ within the file, so that a compiler can read it.
};

/// For lists of names: all of them.
inline constexpr std::size_t ALL_NAMES = std::numeric_limits<std::size_t>::max();

/// The identifiers of types, and of the literals and units that share a scope with them, in
/// declarations of one language.
///
/// The first type with a name keeps it; a later one, or a literal that is called like a type, gets
/// its type id added: `state_t_81`. A type without a name is `type_38`. A typedef that has the name
/// of its data type and adds nothing is that type; where it adds something it keeps the name, and
/// the data type gets another one. The same file gives the same names, whatever of it is shown.
class DeclaredNames {
public:
    /// For distinct names all types are looked at, four times; their names are remembered, 40
    /// bytes each.
    DeclaredNames(const TypeTable& types, SourceLanguage language, Naming naming);

    /// The identifier of a type, escaped as the language has it.
    std::string typeName(unsigned int id) const;

    /// The name that a type has where another one has its own.
    std::string madeName(unsigned int id) const;

    /// Whether there is a type of this id, and it is of the language of the names.
    bool isOfLanguage(unsigned int id) const;

    /// The type whose declaration a typedef shares; the id itself for all others.
    unsigned int declaredType(unsigned int id) const;

    /// Whether the language has the type without a declaration. Never so with own names in VHDL,
    /// where a declaration can be shown.
    bool isPredefined(unsigned int id) const;

    /// The identifiers of a type's literals or units, which differ from one another; the first
    /// `most` of them.
    std::vector<std::string> literalNames(unsigned int id, std::size_t most = ALL_NAMES) const;

    /// The same for members, which have a scope of their own. Members that are null have no name.
    std::vector<std::string> memberNames(const RTTI::RTAggregateType& type,
                                         std::size_t most = ALL_NAMES) const;

    /// Whether a literal of a predefined type is hidden by a declared type of the same name.
    bool isHidden(std::string_view literal) const;

private:
    using Owner = std::uint64_t;

    void findLanguages();
    void claimPredefined();
    void claimTypes();
    void claimLiterals();

    /// Whether the identifier was free.
    bool claim(std::string_view identifier, Owner owner);
    const Owner* ownerOf(std::string_view identifier) const;
    bool isOwned(std::string_view identifier, Owner owner) const;
    bool addsNothing(const RTTI::RTTypedefType& alias) const;
    bool hasNameOfItsData(const RTTI::RTTypedefType& alias) const;

    /// The name with the suffix, as often as it takes until no other has it.
    std::string free(std::string name, const std::string& suffix) const;
    std::string freeLiteral(std::string name, const std::string& suffix) const;

    /// Whether it is the name that a type without one of its own got.
    bool isMadeForType(std::string_view identifier) const;
    Owner literalOwner(unsigned int id) const;

    TypeTable m_types;
    SourceLanguage m_language;
    Naming m_naming;
    std::unordered_map<std::size_t, Owner> m_owners; ///< By a hash of the identity.
    std::vector<bool> m_yields;                      ///< Types whose subtype has their name.
    std::vector<bool> m_isOfLanguage;
    std::vector<bool> m_predefined;
    std::vector<bool> m_keepsName;
};

} // namespace Inspect
