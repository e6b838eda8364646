#pragma once

#include "Inspect/declarations/DeclaredPackages.h"
#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Inspect {

/// How types are named in declarations.
enum class Naming {
    OWN,      ///< By their own names: nothing is examined in advance.
    DISTINCT, ///< By names that are unique in the file, so that a compiler can read it.
    PACKAGES  ///< By names that are unique in the package that declares the type.
};

/// For lists of names: no limit.
inline constexpr std::size_t ALL_NAMES = std::numeric_limits<std::size_t>::max();

/// The identifiers of types, and of the literals and units that share a scope with them, in
/// declarations of one language.
///
/// The first type with a name keeps it; the type id is appended to the name of a later one, or of a
/// literal with the name of a type: `state_t_81`. A type without a name is called `type_38`, for
/// example. A typedef that has the name of its data type and adds nothing is treated as that type;
/// if it adds something, it keeps the name, and the data type gets another one. The names depend
/// only on the file, not on which of its types are shown. With packages, the same applies to each
/// package separately; VHDL types are in a single one, because their names have none.
class DeclaredNames {
public:
    /// For distinct names, examines all types four times and remembers their names, which takes 40
    /// bytes for each. For packages, examines all types four times more.
    DeclaredNames(const TypeTable& types, SourceLanguage language, Naming naming);

    /// The identifier of a type, escaped as the language requires.
    std::string typeName(unsigned int id) const;

    /// The name that another package uses: `p::t` for a type that is declared in `p`.
    std::string typeName(unsigned int id, std::size_t fromPackage) const;

    /// Whether a class of another package is the base of one in this package and can be imported
    /// there, because its name is not taken.
    bool isImported(unsigned int id, std::size_t package) const;

    /// The packages that declare the types.
    const DeclaredPackages& packages() const { return m_packages; }

    /// The name of a type whose own name is taken by another one.
    std::string madeName(unsigned int id) const;

    /// Whether there is a type with this id and it belongs to the language of the names.
    bool isOfLanguage(unsigned int id) const;

    /// The type whose declaration a typedef shares; for all other types the id itself.
    unsigned int declaredType(unsigned int id) const;

    /// Whether the language predefines the type. Always false for own names in VHDL, where a
    /// declaration can be shown.
    bool isPredefined(unsigned int id) const;

    /// The identifiers of the first `most` literals or units of a type, all different.
    std::vector<std::string> literalNames(unsigned int id, std::size_t most = ALL_NAMES) const;

    /// The same for members, which have a scope of their own. Null members have no name.
    std::vector<std::string> memberNames(const RTTI::RTAggregateType& type,
                                         std::size_t most = ALL_NAMES) const;

    /// Whether a declared type of the same name hides a literal of a predefined type.
    bool isHidden(std::string_view literal) const;

private:
    using Owner = std::uint64_t;

    void findLanguages();
    void claimPredefined();
    void claimTypes();
    void claimLiterals();
    void claimImports();

    /// Names of packages are visible in all of them.
    void claimPackages();

    /// Whether the identifier was free in a package.
    bool claim(std::string_view identifier, Owner owner, std::size_t package);
    const Owner* ownerOf(std::string_view identifier, std::size_t package) const;
    bool isOwned(std::string_view identifier, Owner owner, std::size_t package) const;

    /// For each type the one whose declaration it shares, or NO_TYPE_ID if that needs none or
    /// cannot have one in the language.
    std::vector<unsigned int> declaredTypes() const;
    bool addsNothing(const RTTI::RTTypedefType& alias) const;
    bool hasNameOfItsData(const RTTI::RTTypedefType& alias) const;

    /// The name with the suffix, as often as it takes until no other of the package has it.
    std::string free(std::string name, const std::string& suffix, std::size_t package) const;
    std::string freeLiteral(std::string name, const std::string& suffix, std::size_t package) const;

    /// Whether it is the name that a type of the package without one of its own got.
    bool isMadeForType(std::string_view identifier, std::size_t package) const;

    /// Whether names are told apart.
    bool isDistinct() const { return m_naming != Naming::OWN; }

    /// The name of a type within its package, or nothing.
    std::string_view localName(unsigned int id) const;
    Owner literalOwner(unsigned int id) const;

    TypeTable m_types;
    SourceLanguage m_language;
    Naming m_naming;
    DeclaredPackages m_packages;
    std::unordered_map<std::size_t, Owner> m_owners; ///< By a hash of package and identity.
    std::vector<bool> m_yields;                      ///< Types whose subtype has their name.
    std::vector<bool> m_isOfLanguage;
    std::vector<bool> m_predefined;
    std::vector<bool> m_keepsName;
};

} // namespace Inspect
