#include "Inspect/declarations/DeclaredNames.h"

#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/PredefinedTypes.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/Ranges.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

using Owner = NameOwners::Owner;

constexpr Owner PREDEFINED = ~0ull;

/// VHDL's enumeration literals are overloaded: many types may have one of the same name.
constexpr Owner OVERLOADED = ~1ull;

Owner typeOwner(unsigned int id) { return 2 * (Owner{id} + 1); }

std::string_view viewOf(const char* name) { return name != nullptr ? name : ""; }

/// Passes on the list of the literals or units of a type, empty where it has none, and what gives
/// the name of one.
template <typename Use> void withLiterals(const RTBaseType& type, Use use) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
        return use(static_cast<const RTSeqEnumType&>(type).m_enumeratorNames, viewOf);
    case ClassId::DISCRETE_ENUM:
        return use(static_cast<const RTDiscreteEnumType&>(type).m_enumerators,
                   [](const auto& literal) { return std::string_view(literal.enumName); });
    case ClassId::PHYSICAL:
        return use(static_cast<const RTPhysicalType&>(type).m_units,
                   [](const auto& unit) { return std::string_view(unit.unitName); });
    default: return use(std::vector<const char*>(), viewOf);
    }
}

/// Whether types of a class have literals or units.
bool hasLiterals(unsigned int classId) {
    return classId == ClassId::SEQ_ENUM || classId == ClassId::DISCRETE_ENUM ||
           classId == ClassId::PHYSICAL;
}

/// What the owner of an identifier is found by, given the hash of its identity.
std::uint64_t scopedHash(std::uint64_t identity, std::size_t package) {
    constexpr std::uint64_t SPREAD = 0x9E3779B97F4A7C15;
    return identity ^ (package * SPREAD);
}

/// The largest number of names that are compared each with each.
constexpr std::size_t FEW = 16;

/// Whether all are different. Leaves them in another order.
bool areDistinct(std::uint64_t* hashes, std::size_t count) {
    if (count > FEW) {
        std::sort(hashes, hashes + count);
        return std::adjacent_find(hashes, hashes + count) == hashes + count;
    }
    bool isAnySame = false;
    for (std::size_t i = 1; i < count; ++i) {
        for (std::size_t j = 0; j < i; ++j)
            isAnySame |= hashes[i] == hashes[j];
    }
    return !isAnySame;
}

/// Whether all have identities of their own. Only then true, though not always.
bool areDistinct(SourceLanguage language, const std::vector<Identifier>& identifiers) {
    std::array<std::uint64_t, FEW> few{};
    std::vector<std::uint64_t> many(identifiers.size() > FEW ? identifiers.size() : 0);
    std::uint64_t* const hashes = many.empty() ? few.data() : many.data();
    std::transform(identifiers.begin(), identifiers.end(), hashes,
                   [=](std::string_view identifier) { return identityHash(language, identifier); });
    return areDistinct(hashes, identifiers.size());
}

Identifier spelled(SourceLanguage language, std::string_view name) {
    if (language == SourceLanguage::VHDL && isCharacterLiteral(name))
        return Identifier(name);
    return identifierOf(language, name);
}

} // namespace

DeclaredNames::DeclaredNames(const TypeTable& types, SourceLanguage language, Naming naming)
    : DeclaredTypes(types, language,
                    naming == Naming::OWN ? Examination::ON_REQUEST : Examination::IN_ADVANCE) {
    if (!isExamined())
        return;
    m_names.resize(types.count);
    if (naming == Naming::PACKAGES && language == SourceLanguage::SYSTEM_VERILOG)
        m_packages = DeclaredPackages(m_types, *this);
    claimEverywhere();
    claimTypes();
    claimLiterals();
    claimImports();
}

void DeclaredNames::claimEverywhere() {
    for (std::size_t package = 0; package + 1 < m_packages.count(); ++package)
        m_everywhere.claim(identityHash(m_language, m_packages.nameOf(package)), PREDEFINED);
    for (unsigned int id = 0; id < m_types.count && m_language == SourceLanguage::VHDL; ++id) {
        if (isPredefined(id))
            m_everywhere.claim(identityHash(m_language, givenName(id)), PREDEFINED);
    }
}

void DeclaredNames::claimTypes() {
    m_owners.reserve(m_types.count);
    for (unsigned int id = 0; id < m_types.count; ++id) {
        if (!isOfLanguage(id) || givenName(id).empty() || isPredefined(id) || yieldsName(id) ||
            declaredType(id) != id)
            continue;
        const Identifier name = identifierOf(m_language, localName(id));
        const Owner owner = typeOwner(id);
        if (claim(identityHash(m_language, name), owner, m_packages.packageOf(id)) == owner)
            m_names[id].spelling =
                name.isName() ? name.view() : m_escaped.emplace_back(name.view());
    }
}

void DeclaredNames::claimLiterals() {
    std::vector<std::uint64_t> hashes;
    for (unsigned int id = 0; id < m_types.count; ++id) {
        if (!isOfLanguage(id) || isPredefined(id) || !hasLiterals(classOf(id)))
            continue;
        const Owner owner = literalOwner(id);
        hashes.clear();
        bool areKept = true;
        bool areLegal = true;
        withLiterals(*m_types.typeOf(id), [&](const auto& literals, auto nameOf) {
            for (const auto& literal : literals) {
                const std::string_view name = nameOf(literal);
                areKept = areKept && !name.empty();
                if (name.empty())
                    continue;
                const Identifier identifier = spelled(m_language, name);
                hashes.push_back(identityHash(m_language, identifier));
                areLegal = areLegal && identifier.isName();
            }
        });
        // All at once: the processor then waits for many places of the table at a time.
        for (const std::uint64_t hash : hashes)
            areKept &= claim(hash, owner, m_packages.packageOf(id)) == owner;
        m_names[id].areLiteralsKept = areKept && areDistinct(hashes.data(), hashes.size());
        m_names[id].areLiteralsLegal = areKept && areLegal;
    }
}

void DeclaredNames::claimImports() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        if (classOf(id) != ClassId::CLASS)
            continue;
        const auto& type = static_cast<const RTClassType&>(*m_types.typeOf(id));
        if (!isOfLanguage(type.m_baseClassTypeId))
            continue;
        const unsigned int base = declaredType(type.m_baseClassTypeId);
        const std::size_t package = m_packages.packageOf(id);
        if (m_packages.packageOf(base) != package)
            claim(identityHash(m_language, typeName(base)), typeOwner(base), package);
    }
}

bool DeclaredNames::isImported(unsigned int id, std::size_t package) const {
    id = declaredType(id);
    return m_packages.packageOf(id) != package && isOwned(typeName(id), typeOwner(id), package);
}

Owner DeclaredNames::literalOwner(unsigned int id) const {
    return classOf(id) == ClassId::SEQ_ENUM ? OVERLOADED : typeOwner(id) + 1;
}

Owner DeclaredNames::claim(std::uint64_t identity, Owner owner, std::size_t package) {
    const Owner everywhere = m_everywhere.of(identity);
    return everywhere != NameOwners::NOBODY ? everywhere
                                            : m_owners.claim(scopedHash(identity, package), owner);
}

Owner DeclaredNames::ownerOf(std::string_view identifier, std::size_t package) const {
    const std::uint64_t identity = identityHash(m_language, identifier);
    const Owner everywhere = m_everywhere.of(identity);
    return everywhere != NameOwners::NOBODY ? everywhere
                                            : m_owners.of(scopedHash(identity, package));
}

bool DeclaredNames::isOwned(std::string_view identifier, Owner owner, std::size_t package) const {
    return ownerOf(identifier, package) == owner;
}

bool DeclaredNames::isHidden(std::string_view literal) const {
    const Owner owner = ownerOf(literal, 0); // VHDL has one package.
    return owner != NameOwners::NOBODY && owner != OVERLOADED && owner != PREDEFINED;
}

std::string DeclaredNames::free(std::string name, const std::string& suffix,
                                std::size_t package) const {
    do
        name = suffixed(m_language, name, suffix);
    while (ownerOf(spelled(m_language, name), package) != NameOwners::NOBODY);
    return std::string(spelled(m_language, name).view());
}

std::string DeclaredNames::freeLiteral(std::string name, const std::string& suffix,
                                       std::size_t package) const {
    do
        name = free(name, suffix, package);
    while (isMadeForType(name, package));
    return name;
}

bool DeclaredNames::isMadeForType(std::string_view identifier, std::size_t package) const {
    const std::size_t end = identifier.find_last_of("0123456789");
    const std::size_t underline = identifier.rfind('_');
    if (end == std::string_view::npos || underline == std::string_view::npos || end < underline)
        return false;
    const std::string_view digits = identifier.substr(underline + 1, end - underline);
    unsigned int id = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), id);
    if (read.ec != std::errc() || id >= m_types.count)
        return false;
    return isOfLanguage(id) && m_packages.packageOf(id) == package && typeName(id) == identifier;
}

std::string_view DeclaredNames::localName(unsigned int id) const {
    return m_packages.localName(id, givenName(id));
}

Identifier DeclaredNames::typeName(unsigned int id, std::size_t fromPackage) const {
    const std::size_t package = m_packages.packageOf(id);
    if (package == fromPackage || !isOfLanguage(id) || isPredefined(id))
        return typeName(id);
    const std::string& scope = m_packages.nameOf(package);
    const Identifier name = typeName(id);
    const std::string_view local = name.view();
    const std::string_view given = givenName(declaredType(id));
    const bool isWhole = given.size() == scope.size() + 2 + local.size();
    if (isWhole && given.data() + scope.size() + 2 == local.data())
        return Identifier(given);
    std::string text;
    text.reserve(scope.size() + 2 + local.size());
    text.append(scope).append("::").append(local);
    return Identifier(std::move(text));
}

Identifier DeclaredNames::typeName(unsigned int id) const {
    if (!isExamined())
        return ownName(id);
    id = declaredType(id);
    if (id < m_names.size() && !m_names[id].spelling.empty())
        return Identifier(m_names[id].spelling);
    const std::string_view name = givenName(id);
    if (name.empty())
        return Identifier(madeName(id));
    if (isPredefined(id))
        return Identifier(name);
    // A type of the other language is named where a declaration cannot be read in any case.
    return isOfLanguage(id) ? Identifier(madeName(id)) : identifierOf(m_language, localName(id));
}

Identifier DeclaredNames::ownName(unsigned int id) const {
    const RTBaseType* const type = follow(id);
    if (type == nullptr)
        return Identifier(madeName(id));
    const std::string_view name = Inspect::givenName(type->m_name);
    if (name.empty())
        return Identifier(madeName(id));
    return isKeyword(*type) ? Identifier(name) : identifierOf(m_language, name);
}

std::string DeclaredNames::madeName(unsigned int id) const {
    const std::string_view name = localName(id);
    return free(std::string(name.empty() ? "type" : name), '_' + std::to_string(id),
                m_packages.packageOf(id));
}

std::vector<Identifier> DeclaredNames::literalNames(unsigned int id, std::size_t most) const {
    std::vector<Identifier> literals;
    const RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        return literals;
    withLiterals(*type, [&](const auto& list, auto nameOf) {
        const std::size_t count = std::min(list.size(), most);
        literals.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            literals.push_back(ownLiteral(id, nameOf(list[i])));
    });
    if (!claimedName(id).areLiteralsKept)
        renameLiterals(id, *type, literals);
    return literals;
}

Identifier DeclaredNames::literalName(unsigned int id, std::size_t position) const {
    if (!claimedName(id).areLiteralsKept)
        return std::move(literalNames(id, position + 1).back());
    Identifier literal;
    withLiterals(*m_types.typeOf(id), [&](const auto& list, auto nameOf) {
        literal = ownLiteral(id, nameOf(list[position]));
    });
    return literal;
}

Identifier DeclaredNames::ownLiteral(unsigned int id, std::string_view name) const {
    const bool isLegal = name.empty() || claimedName(id).areLiteralsLegal;
    return isLegal ? Identifier(name) : spelled(m_language, name);
}

/// Gives another name to each that has none, or one that is not its own.
void DeclaredNames::renameLiterals(unsigned int id, const RTBaseType& type,
                                   std::vector<Identifier>& literals) const {
    const Owner owner = literalOwner(id);
    const std::size_t package = m_packages.packageOf(id);
    const bool isAnyFree = !isExamined() || isPredefined(id);
    const auto isKept = [&](std::string_view literal) {
        return !literal.empty() && (isAnyFree || isOwned(literal, owner, package));
    };
    if (std::all_of(literals.begin(), literals.end(), isKept) && areDistinct(m_language, literals))
        return;
    std::unordered_set<std::string> used;
    withLiterals(type, [&](const auto& list, auto nameOf) {
        for (std::size_t i = 0; i < literals.size(); ++i) {
            const std::string_view name = nameOf(list[i]);
            if (!isKept(literals[i]) || used.count(identityOf(m_language, literals[i])) != 0)
                literals[i] = Identifier(
                    freeLiteral(std::string(name.empty() ? "literal" : name),
                                '_' + std::to_string(id) + '_' + std::to_string(i), package));
            used.insert(identityOf(m_language, literals[i]));
        }
    });
}

std::vector<Identifier> DeclaredNames::memberNames(const RTAggregateType& type,
                                                   std::size_t most) const {
    std::vector<Identifier> members;
    members.reserve(std::min(type.m_members.size(), most));
    bool areGiven = true;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (members.size() == most)
            break;
        if (member == nullptr)
            continue;
        const std::string_view name = viewOf(member->m_memberName);
        areGiven = areGiven && !name.empty();
        members.push_back(name.empty() ? Identifier() : identifierOf(m_language, name));
    }
    if (!areGiven || !areDistinct(m_language, members))
        renameMembers(type, members);
    return members;
}

/// A name that is made yields to those that were given, before it or behind it.
void DeclaredNames::renameMembers(const RTAggregateType& type,
                                  std::vector<Identifier>& members) const {
    std::unordered_set<std::string> used;
    std::vector<bool> isKept;
    isKept.reserve(members.size());
    for (const std::string_view name : members)
        isKept.push_back(!name.empty() && used.insert(identityOf(m_language, name)).second);
    const auto freeName = [&](std::string_view given, std::size_t i) {
        std::string name(given.empty() ? "member" : given);
        for (;;) {
            name = suffixed(m_language, name, '_' + std::to_string(i));
            const Identifier identifier = identifierOf(m_language, name);
            if (used.insert(identityOf(m_language, identifier)).second)
                return Identifier(std::string(identifier.view()));
        }
    };
    std::size_t i = 0;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (i == members.size())
            return;
        if (member == nullptr)
            continue;
        if (!isKept[i])
            members[i] = freeName(viewOf(member->m_memberName), i);
        ++i;
    }
}

} // namespace Inspect
