#include "Inspect/declarations/DeclaredNames.h"

#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/PredefinedTypes.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/Ranges.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <limits>
#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr std::uint64_t PREDEFINED = ~0ull;

/// VHDL's enumeration literals are overloaded: many types may have one of the same name.
constexpr std::uint64_t OVERLOADED = ~1ull;

/// Typedefs are followed to the type whose declaration they share through this many.
constexpr int CHAIN_LIMIT = 1000;

/// The scope of names that are visible in all packages.
constexpr std::size_t EVERY_PACKAGE = std::numeric_limits<std::size_t>::max();

std::uint64_t typeOwner(unsigned int id) { return 2ull * id; }

/// The name that somebody gave, else nothing.
std::string_view nameOf(const RTBaseType& type) {
    return isGivenName(type.m_name) ? type.m_name : "";
}

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

/// What the owner of an identifier is found by, given the hash of its identity.
std::uint64_t scopedHash(std::uint64_t identity, std::size_t package) {
    constexpr std::uint64_t SPREAD = 0x9E3779B97F4A7C15;
    return identity ^ (package * SPREAD);
}

/// Whether all have identities of their own. Only then true, though not always.
bool areDistinct(SourceLanguage language, const std::vector<std::string>& identifiers) {
    std::vector<std::uint64_t> hashes;
    hashes.reserve(identifiers.size());
    for (const std::string& identifier : identifiers)
        hashes.push_back(identityHash(language, identifier));
    std::sort(hashes.begin(), hashes.end());
    return std::adjacent_find(hashes.begin(), hashes.end()) == hashes.end();
}

std::string spelled(SourceLanguage language, std::string_view name) {
    if (language == SourceLanguage::VHDL && isCharacterLiteral(name))
        return std::string(name);
    return identifierOf(language, name);
}

} // namespace

DeclaredNames::DeclaredNames(const TypeTable& types, SourceLanguage language, Naming naming)
    : m_types(types), m_language(language), m_naming(naming) {
    if (!isDistinct())
        return;
    m_isOfLanguage.resize(types.count);
    m_yields.resize(types.count);
    m_predefined.resize(types.count);
    m_keepsName.resize(types.count);
    findLanguages();
    claimPredefined();
    if (naming == Naming::PACKAGES && language == SourceLanguage::SYSTEM_VERILOG)
        m_packages = DeclaredPackages(types, declaredTypes());
    claimPackages();
    claimTypes();
    claimLiterals();
    claimImports();
}

/// A typedef mostly follows its data type: long chains of them are not walked again for each.
void DeclaredNames::findLanguages() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const RTBaseType* type = m_types.typeOf(id);
        if (type == nullptr)
            continue;
        const unsigned int data = type->GetClassId() == ClassId::TYPEDEF
                                      ? static_cast<const RTTypedefType*>(type)->m_dataTypeId
                                      : id;
        m_isOfLanguage[id] = data < id && m_types.typeOf(data) != nullptr
                                 ? m_isOfLanguage[data]
                                 : languageOf(*type) == m_language;
    }
}

bool DeclaredNames::isOfLanguage(unsigned int id) const {
    if (isDistinct())
        return id < m_isOfLanguage.size() && m_isOfLanguage[id];
    const RTBaseType* type = m_types.typeOf(id);
    return type != nullptr && languageOf(*type) == m_language;
}

void DeclaredNames::claimPredefined() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const RTBaseType* type = m_types.typeOf(id);
        if (!isOfLanguage(id))
            continue;
        if (m_language == SourceLanguage::SYSTEM_VERILOG) {
            m_predefined[id] = !systemVerilogKeyword(*type).empty();
        } else if (isPredefinedInVhdl(*type, m_types.typeOf)) {
            m_predefined[id] = true;
            claim(nameOf(*type), PREDEFINED, EVERY_PACKAGE);
        }
    }
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const auto* alias = dynamic_cast<const RTTypedefType*>(m_types.typeOf(id));
        if (alias != nullptr && alias->m_dataTypeId < m_types.count && hasNameOfItsData(*alias) &&
            !addsNothing(*alias) && !m_predefined[alias->m_dataTypeId])
            m_yields[alias->m_dataTypeId] = true;
    }
}

void DeclaredNames::claimPackages() {
    for (std::size_t package = 0; package + 1 < m_packages.count(); ++package)
        claim(m_packages.nameOf(package), PREDEFINED, EVERY_PACKAGE);
}

void DeclaredNames::claimTypes() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const RTBaseType* type = m_types.typeOf(id);
        if (!isOfLanguage(id) || nameOf(*type).empty() || m_predefined[id] || m_yields[id] ||
            declaredType(id) != id)
            continue;
        m_keepsName[id] =
            claim(identifierOf(m_language, localName(id)), typeOwner(id), m_packages.packageOf(id));
    }
}

void DeclaredNames::claimLiterals() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const RTBaseType* type = m_types.typeOf(id);
        if (!isOfLanguage(id) || m_predefined[id])
            continue;
        for (const std::string_view name : literalsOf(*type)) {
            if (!name.empty())
                claim(spelled(m_language, name), literalOwner(id), m_packages.packageOf(id));
        }
    }
}

void DeclaredNames::claimImports() {
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const auto* type = dynamic_cast<const RTClassType*>(m_types.typeOf(id));
        if (type == nullptr || !isOfLanguage(type->m_baseClassTypeId))
            continue;
        const unsigned int base = declaredType(type->m_baseClassTypeId);
        const std::size_t package = m_packages.packageOf(id);
        if (m_packages.packageOf(base) != package)
            claim(typeName(base), typeOwner(base), package);
    }
}

bool DeclaredNames::isImported(unsigned int id, std::size_t package) const {
    id = declaredType(id);
    return m_packages.packageOf(id) != package && isOwned(typeName(id), typeOwner(id), package);
}

DeclaredNames::Owner DeclaredNames::literalOwner(unsigned int id) const {
    const RTBaseType* type = m_types.typeOf(id);
    return type != nullptr && type->GetClassId() == ClassId::SEQ_ENUM ? OVERLOADED
                                                                      : typeOwner(id) + 1;
}

bool DeclaredNames::claim(std::string_view identifier, Owner owner, std::size_t package) {
    const std::uint64_t identity = identityHash(m_language, identifier);
    if (m_owners.count(scopedHash(identity, EVERY_PACKAGE)) != 0)
        return false;
    return m_owners.emplace(scopedHash(identity, package), owner).second;
}

const DeclaredNames::Owner* DeclaredNames::ownerOf(std::string_view identifier,
                                                   std::size_t package) const {
    const std::uint64_t identity = identityHash(m_language, identifier);
    auto found = m_owners.find(scopedHash(identity, package));
    if (found == m_owners.end())
        found = m_owners.find(scopedHash(identity, EVERY_PACKAGE));
    return found != m_owners.end() ? &found->second : nullptr;
}

bool DeclaredNames::isOwned(std::string_view identifier, Owner owner, std::size_t package) const {
    const Owner* found = ownerOf(identifier, package);
    return found != nullptr && *found == owner;
}

bool DeclaredNames::isHidden(std::string_view literal) const {
    const Owner* owner = ownerOf(literal, 0); // VHDL has one package.
    return owner != nullptr && *owner != OVERLOADED && *owner != PREDEFINED;
}

bool DeclaredNames::hasNameOfItsData(const RTTypedefType& alias) const {
    const RTBaseType* data = alias.m_dataType;
    if (data == nullptr || nameOf(*data).empty() || nameOf(alias).size() != nameOf(*data).size())
        return false;
    return identityOf(m_language, identifierOf(m_language, nameOf(alias))) ==
           identityOf(m_language, identifierOf(m_language, nameOf(*data)));
}

bool DeclaredNames::addsNothing(const RTTypedefType& alias) const {
    if (std::all_of(alias.m_constraints.begin(), alias.m_constraints.end(), isOpen))
        return true;
    const auto* integer = dynamic_cast<const RTIntType*>(alias.m_dataType);
    if (integer == nullptr || alias.m_constraints.size() != 1)
        return false;
    return isSame(alias.m_constraints.front(), integer->m_constraint);
}

unsigned int DeclaredNames::declaredType(unsigned int id) const {
    for (int i = 0; i < CHAIN_LIMIT; ++i) {
        const RTBaseType* type = m_types.typeOf(id);
        if (type == nullptr || type->GetClassId() != ClassId::TYPEDEF)
            return id;
        const auto& alias = static_cast<const RTTypedefType&>(*type);
        if (!hasNameOfItsData(alias) || !addsNothing(alias))
            return id;
        id = alias.m_dataTypeId;
    }
    return id;
}

std::vector<unsigned int> DeclaredNames::declaredTypes() const {
    std::vector<unsigned int> declared(m_types.count, TypeFileFormat::NO_TYPE_ID);
    for (unsigned int id = 0; id < m_types.count; ++id) {
        const unsigned int type = declaredType(id);
        if (isOfLanguage(type) && !isPredefined(type))
            declared[id] = type;
    }
    return declared;
}

bool DeclaredNames::isPredefined(unsigned int id) const {
    if (isDistinct())
        return id < m_predefined.size() && m_predefined[id];
    const RTBaseType* type = m_types.typeOf(id);
    return m_language == SourceLanguage::SYSTEM_VERILOG && type != nullptr &&
           !systemVerilogKeyword(*type).empty();
}

std::string DeclaredNames::free(std::string name, const std::string& suffix,
                                std::size_t package) const {
    std::string identifier;
    do {
        name = suffixed(m_language, name, suffix);
        identifier = spelled(m_language, name);
    } while (ownerOf(identifier, package) != nullptr);
    return identifier;
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
    const RTBaseType* type = m_types.typeOf(id);
    return type != nullptr ? m_packages.localName(id, nameOf(*type)) : "";
}

std::string DeclaredNames::typeName(unsigned int id, std::size_t fromPackage) const {
    const std::size_t package = m_packages.packageOf(id);
    const bool isVisible = package == fromPackage || !isOfLanguage(id) || isPredefined(id);
    return (isVisible ? "" : m_packages.nameOf(package) + "::") + typeName(id);
}

std::string DeclaredNames::typeName(unsigned int id) const {
    id = declaredType(id);
    const RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr || nameOf(*type).empty())
        return madeName(id);
    if (isPredefined(id))
        return std::string(nameOf(*type));
    const bool keepsName = !isDistinct() || (id < m_keepsName.size() && m_keepsName[id]);
    // A type of the other language is named where a declaration cannot be read in any case.
    if (keepsName || !isOfLanguage(id))
        return identifierOf(m_language, localName(id));
    return madeName(id);
}

std::string DeclaredNames::madeName(unsigned int id) const {
    const std::string_view name = localName(id);
    return free(std::string(name.empty() ? "type" : name), '_' + std::to_string(id),
                m_packages.packageOf(id));
}

std::vector<std::string> DeclaredNames::literalNames(unsigned int id, std::size_t most) const {
    const RTBaseType* type = m_types.typeOf(id);
    if (type == nullptr)
        return {};
    const std::vector<std::string_view> names = literalsOf(*type, most);
    const Owner owner = literalOwner(id);
    const std::size_t package = m_packages.packageOf(id);
    const bool isAnyFree = !isDistinct() || isPredefined(id);
    std::vector<std::string> result;
    result.reserve(names.size());
    bool areKept = true;
    for (const std::string_view name : names) {
        result.push_back(spelled(m_language, name.empty() ? "literal" : name));
        areKept = areKept && !name.empty() && (isAnyFree || isOwned(result.back(), owner, package));
    }
    if (areKept && areDistinct(m_language, result))
        return result;
    std::unordered_set<std::string> used;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool isFree = isAnyFree || isOwned(result[i], owner, package);
        if (names[i].empty() || !isFree || used.count(identityOf(m_language, result[i])) != 0)
            result[i] = freeLiteral(std::string(names[i].empty() ? "literal" : names[i]),
                                    '_' + std::to_string(id) + '_' + std::to_string(i), package);
        used.insert(identityOf(m_language, result[i]));
    }
    return result;
}

std::vector<std::string> DeclaredNames::memberNames(const RTAggregateType& type,
                                                    std::size_t most) const {
    std::vector<std::string_view> names;
    for (const RTAggregateType::t_Member* member : type.m_members) {
        if (names.size() == most)
            break;
        if (member != nullptr)
            names.emplace_back(member->m_memberName != nullptr ? member->m_memberName : "");
    }
    std::vector<std::string> result;
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
    for (const std::string& identifier : result)
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
            result[i] = identifierOf(m_language, name);
            identity = identityOf(m_language, result[i]);
        } while (used.count(identity) != 0 || !made.insert(identity).second);
    }
    return result;
}

} // namespace Inspect
