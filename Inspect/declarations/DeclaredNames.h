#pragma once

#include "Inspect/declarations/DeclaredPackages.h"
#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/NameOwners.h"
#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
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
    /// For distinct names, examines all types several times and remembers what it finds, which
    /// takes about 100 bytes for each. For packages, examines all types three times more.
    DeclaredNames(const TypeTable& types, SourceLanguage language, Naming naming);

    /// The identifier of a type, escaped as the language requires.
    Identifier typeName(unsigned int id) const;

    /// The name that another package uses: `p::t` for a type that is declared in `p`.
    Identifier typeName(unsigned int id, std::size_t fromPackage) const;

    /// Whether a class of another package is the base of one in this package and can be imported
    /// there, because its name is not taken.
    bool isImported(unsigned int id, std::size_t package) const;

    /// The name that a type has from the design, or nothing.
    std::string_view givenName(unsigned int id) const;

    /// The packages that declare the types.
    const DeclaredPackages& packages() const { return m_packages; }

    /// The name of a type whose own name is taken by another one.
    std::string madeName(unsigned int id) const;

    /// The class of a type; 0 if there is none with this id. Where names are told apart, costs no
    /// look at the type.
    unsigned int classOf(unsigned int id) const;

    /// Whether there is a type with this id and it belongs to the language of the names.
    bool isOfLanguage(unsigned int id) const;

    /// The type whose declaration a typedef shares; for all other types the id itself.
    unsigned int declaredType(unsigned int id) const;

    /// Whether the language predefines the type. Always false for own names in VHDL, where a
    /// declaration can be shown.
    bool isPredefined(unsigned int id) const;

    /// The identifiers of the first `most` literals or units of a type, all different.
    std::vector<Identifier> literalNames(unsigned int id, std::size_t most = ALL_NAMES) const;

    /// The same for members, which have a scope of their own. Null members have no name.
    std::vector<Identifier> memberNames(const RTTI::RTAggregateType& type,
                                        std::size_t most = ALL_NAMES) const;

    /// Whether a declared type of the same name hides a literal of a predefined type.
    bool isHidden(std::string_view literal) const;

private:
    using Owner = NameOwners::Owner;

    /// What is known of a type where names are told apart.
    struct Facts {
        std::string_view name;     ///< From the design, or empty.
        std::string_view spelling; ///< What part of the name declarations call it by, if any.
        unsigned int declaredType; ///< The type whose declaration it shares.
        unsigned int classId;      ///< 0 if there is no type.
        bool isOfLanguage : 1;
        bool isPredefined : 1;
        bool yields : 1;        ///< Its subtype has its name.
        bool keepsName : 1;     ///< Though maybe not its spelling.
        bool keepsLiterals : 1; ///< All literals, or units, are called by their names.
    };

    void examineTypes();
    void findDeclaredTypes();
    void claimTypes();
    void claimLiterals();
    void claimImports();

    /// Names of packages are visible in all of them.
    void claimPackages();

    /// The owner of a name in a package, which is `owner` if it was free.
    Owner claim(std::uint64_t identity, Owner owner, std::size_t package);
    Owner ownerOf(std::string_view identifier, std::size_t package) const;
    bool isOwned(std::string_view identifier, Owner owner, std::size_t package) const;

    /// Follows typedefs to the type whose declaration they share; null if there is none.
    const RTTI::RTBaseType* follow(unsigned int& id) const;
    bool addsNothing(const RTTI::RTTypedefType& alias) const;
    bool hasNameOfItsData(unsigned int id, const RTTI::RTTypedefType& alias) const;

    /// Whether the language predefines a type of it that has a name.
    bool isPredefinedName(const RTTI::RTBaseType& type) const;

    /// Whether SystemVerilog predefines the type, in declarations of it.
    bool isKeyword(const RTTI::RTBaseType& type) const;

    /// What declarations call a type where names are not told apart.
    Identifier ownName(unsigned int id) const;

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
    std::vector<Facts> m_facts; ///< Of types, where names are told apart.
    NameOwners m_owners;        ///< By a hash of package and identity.
    NameOwners m_everywhere;    ///< Of names that are visible in all packages.
};

} // namespace Inspect
