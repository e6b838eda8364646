#pragma once

#include "Inspect/declarations/DeclaredPackages.h"
#include "Inspect/declarations/DeclaredTypes.h"
#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/NameOwners.h"
#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/model/TypeTable.h"

#include <cstddef>
#include <cstdint>
#include <deque>
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
class DeclaredNames : public DeclaredTypes {
public:
    /// For distinct names, examines all types several times and remembers what it finds, which
    /// takes about 100 bytes for each. For packages, examines all types three times more.
    DeclaredNames(const TypeTable& types, SourceLanguage language, Naming naming);
    DeclaredNames(const DeclaredNames&) = delete;
    DeclaredNames& operator=(const DeclaredNames&) = delete;

    /// The identifier of a type, escaped as the language requires. Valid as long as the types and
    /// this object.
    Identifier typeName(unsigned int id) const;

    /// The name that another package uses: `p::t` for a type that is declared in `p`.
    Identifier typeName(unsigned int id, std::size_t fromPackage) const;

    /// Whether a class of another package is the base of one in this package and can be imported
    /// there, because its name is not taken.
    bool isImported(unsigned int id, std::size_t package) const;

    /// The packages that declare the types.
    const DeclaredPackages& packages() const { return m_packages; }

    /// The name of a type whose own name is taken by another one.
    std::string madeName(unsigned int id) const;

    /// The identifiers of the first `most` literals or units of a type, all different.
    std::vector<Identifier> literalNames(unsigned int id, std::size_t most = ALL_NAMES) const;

    /// One of them, by its position in the type, which has it.
    Identifier literalName(unsigned int id, std::size_t position) const;

    /// The same for members, which have a scope of their own. Null members have no name.
    std::vector<Identifier> memberNames(const RTTI::RTAggregateType& type,
                                        std::size_t most = ALL_NAMES) const;

    /// Whether a declared type of the same name hides a literal of a predefined type.
    bool isHidden(std::string_view literal) const;

private:
    using Owner = NameOwners::Owner;

    /// What became of the names of a type where names are told apart.
    struct Name {
        std::string_view spelling;     ///< What declarations call the type, if it keeps its name.
        bool areLiteralsKept = false;  ///< All literals, or units, are called by their names,
        bool areLiteralsLegal = false; ///< which are identifiers as they are.
    };

    void claimTypes();
    void claimLiterals();
    void claimImports();

    /// Names of packages, and of types that VHDL predefines, are visible in all packages.
    void claimEverywhere();

    /// The owner of a name in a package, which is `owner` if it was free.
    Owner claim(std::uint64_t identity, Owner owner, std::size_t package);
    Owner ownerOf(std::string_view identifier, std::size_t package) const;
    bool isOwned(std::string_view identifier, Owner owner, std::size_t package) const;

    /// What declarations call a type where names are not told apart.
    Identifier ownName(unsigned int id) const;

    /// The name with the suffix, as often as it takes until no other of the package has it.
    std::string free(std::string name, const std::string& suffix, std::size_t package) const;
    std::string freeLiteral(std::string name, const std::string& suffix, std::size_t package) const;

    /// What became of the names of a type; nothing where names are not told apart.
    Name claimedName(unsigned int id) const { return id < m_names.size() ? m_names[id] : Name(); }

    /// A literal's own name, or nothing.
    Identifier ownLiteral(unsigned int id, std::string_view name) const;
    void renameLiterals(unsigned int id, const RTTI::RTBaseType& type,
                        std::vector<Identifier>& literals) const;
    void renameMembers(const RTTI::RTAggregateType& type, std::vector<Identifier>& members) const;

    /// Whether it is the name that a type of the package without one of its own got.
    bool isMadeForType(std::string_view identifier, std::size_t package) const;

    /// The name of a type within its package, or nothing.
    std::string_view localName(unsigned int id) const;
    Owner literalOwner(unsigned int id) const;

    DeclaredPackages m_packages;
    std::vector<Name> m_names;         ///< Of types, where names are told apart.
    std::deque<std::string> m_escaped; ///< The spellings that are not in a name as they are.
    NameOwners m_owners;               ///< By a hash of package and identity.
    NameOwners m_everywhere;           ///< Of names that are visible in all packages.
};

} // namespace Inspect
