#include "Inspect/declarations/DeclaredNames.h"

#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/PredefinedTypes.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/Ranges.h"

#include <algorithm>
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

template <typename List, typename NameOf>
std::vector<std::string_view> namesIn(const List& list, std::size_t most, NameOf nameOf) {
    std::vector<std::string_view> names;
    for (std::size_t i = 0; i < std::min(list.size(), most); ++i)
        names.emplace_back(nameOf(list[i]));
    return names;
}

/// The names of the literals or units of a type.
std::vector<std::string_view> literalsOf(const RTBaseType& type, std::size_t most = ALL_NAMES) {
    switch (type.GetClassId()) {
    case ClassId::SEQ_ENUM:
        return namesIn(static_cast<const RTSeqEnumType&>(type).m_enumeratorNames, most,
                       [](const char* name) { return name != nullptr ? name : ""; });
    case ClassId::DISCRETE_ENUM:
        return namesIn(static_cast<const RTDiscreteEnumType&>(type).m_enumerators, most,
                       [](const auto& literal) { return std::string_view(literal.enumName); });
    case ClassId::PHYSICAL:
        return namesIn(static_cast<const RTPhysicalType&>(type).m_units, most,
                       [](const auto& unit) { return std::string_view(unit.unitName); });
    default: return {};
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

/// Whether all are different. Leaves them in another order.
bool areDistinct(std::vector<std::uint64_t>& hashes) {
    constexpr std::size_t FEW = 16;
    if (hashes.size() > FEW) {
        std::sort(hashes.begin(), hashes.end());
        return std::adjacent_find(hashes.begin(), hashes.end()) == hashes.end();
    }
    bool isAnySame = false;
    for (std::size_t i = 1; i < hashes.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j)
            isAnySame |= hashes[i] == hashes[j];
    }
    return !isAnySame;
}

/// Whether all have identities of their own. Only then true, though not always.
bool areDistinct(SourceLanguage language, const std::vector<Identifier>& identifiers) {
    std::vector<std::uint64_t> hashes;
    hashes.reserve(identifiers.size());
    for (const std::string_view identifier : identifiers)
        hashes.push_back(identityHash(language, identifier));
    return areDistinct(hashes);
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
        const std::string_view name = localName(id);
        const Identifier identifier = identifierOf(m_language, name);
        const Owner owner = typeOwner(id);
        m_names[id].isKept =
            claim(identityHash(m_language, identifier), owner, m_packages.packageOf(id)) == owner;
        if (m_names[id].isKept && identifier.isName())
            m_names[id].spelling = name;
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
        for (const std::string_view name : literalsOf(*m_types.typeOf(id))) {
            areKept = areKept && !name.empty();
            if (name.empty())
                continue;
            const Identifier identifier = spelled(m_language, name);
            hashes.push_back(identityHash(m_language, identifier));
            areKept = areKept && identifier.isName();
        }
        // All at once: the processor then waits for many places of the table at a time.
        for (const std::uint64_t hash : hashes)
            areKept &= claim(hash, owner, m_packages.packageOf(id)) == owner;
        m_names[id].areLiteralsKept = areKept && areDistinct(hashes);
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
    return Identifier(m_packages.nameOf(package) + "::" + std::string(typeName(id).view()));
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
    if (m_names[id].isKept || !isOfLanguage(id))
        return identifierOf(m_language, localName(id));
    return Identifier(madeName(id));
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
    const RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        return {};
    const std::vector<std::string_view> names = literalsOf(*type, most);
    if (id < m_names.size() && m_names[id].areLiteralsKept)
        return {names.begin(), names.end()};
    std::vector<Identifier> result;
    result.reserve(names.size());
    for (const std::string_view name : names)
        result.push_back(spelled(m_language, name.empty() ? "literal" : name));
    const Owner owner = literalOwner(id);
    const std::size_t package = m_packages.packageOf(id);
    const bool isAnyFree = !isExamined() || isPredefined(id);
    const auto isKept = [&](std::size_t i) {
        return !names[i].empty() && (isAnyFree || isOwned(result[i], owner, package));
    };
    bool areKept = true;
    for (std::size_t i = 0; i < names.size() && areKept; ++i)
        areKept = isKept(i);
    if (areKept && areDistinct(m_language, result))
        return result;
    std::unordered_set<std::string> used;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!isKept(i) || used.count(identityOf(m_language, result[i])) != 0)
            result[i] = Identifier(freeLiteral(std::string(names[i].empty() ? "literal" : names[i]),
                                               '_' + std::to_string(id) + '_' + std::to_string(i),
                                               package));
        used.insert(identityOf(m_language, result[i]));
    }
    return result;
}

std::vector<Identifier> DeclaredNames::memberNames(const RTAggregateType& type,
                                                   std::size_t most) const {
    std::vector<std::string_view> names;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (names.size() == most)
            break;
        if (member != nullptr)
            names.emplace_back(member->m_memberName != nullptr ? member->m_memberName : "");
    }
    std::vector<Identifier> result;
    result.reserve(names.size());
    bool areGiven = true;
    for (const std::string_view name : names) {
        result.push_back(identifierOf(m_language, name.empty() ? "member" : name));
        areGiven = areGiven && !name.empty();
    }
    if (areGiven && areDistinct(m_language, result))
        return result;
    std::vector<std::string> identities;
    identities.reserve(result.size());
    for (const Identifier& identifier : result)
        identities.push_back(identityOf(m_language, identifier));
    std::unordered_set<std::string_view> used(2 * names.size());
    std::vector<std::size_t> renamed;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].empty() || !used.insert(identities[i]).second)
            renamed.push_back(i);
    }
    // A name that is made yields to those that were given, before it or behind it.
    std::unordered_set<std::string> made;
    for (const std::size_t i : renamed) {
        std::string name(names[i].empty() ? "member" : names[i]);
        std::string identity;
        do {
            name = suffixed(m_language, name, '_' + std::to_string(i));
            // The text of a name that is made does not last.
            result[i] = Identifier(std::string(identifierOf(m_language, name).view()));
            identity = identityOf(m_language, result[i]);
        } while (used.count(identity) != 0 || !made.insert(identity).second);
    }
    return result;
}

} // namespace Inspect
