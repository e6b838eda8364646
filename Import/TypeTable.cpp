#include "Import/TypeTable.h"

#include "Import/EqualTypes.h"
#include "Import/ImportError.h"
#include "Import/References.h"
#include "Import/TypeIds.h"

#include <algorithm>
#include <utility>

namespace Import {

using namespace RTTI;

namespace {

constexpr unsigned int NONE = TypeFileFormat::NO_TYPE_ID;

using Ids = std::vector<unsigned int>;
using TypeList = std::vector<std::unique_ptr<RTBaseType>>;

/// Whether SystemVerilog types of this class have a type id in the record.
bool hasSVTypeId(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::ARRAY: return static_cast<const RTArrayType&>(type).m_arrayKind != VHDL_ARRAY;
    case ClassId::RECORD: return static_cast<const RTRecordType&>(type).m_recordKind != VHDL_RECORD;
    case ClassId::DYNAMIC_ARRAY:
    case ClassId::QUEUE:
    case ClassId::ASSOC_ARRAY:
    case ClassId::CLASS: return true;
    default: return false;
    }
}

void numberSVTypes(const TypeList& types) {
    int next = 1;
    for (const auto& type : types) {
        if (hasSVTypeId(*type))
            type->setSVTypeId(next++);
    }
}

/// "p::state_e", or words for a type without a name.
std::string nameOf(const RTBaseType& type) {
    const std::string name = type.m_name == nullptr ? "" : type.m_name;
    return name.empty() ? "a type without a name" : name;
}

/// For each type the missing one because of which it is incomplete, or NONE.
Ids missingOf(const References& references, Ids missing) {
    std::vector<Ids> users(references.count());
    for (unsigned int id = 0; id < references.count(); ++id) {
        for (const unsigned int needed : references.of(id))
            users[needed].push_back(id);
    }
    Ids missingOne(references.count(), NONE);
    for (const unsigned int id : missing)
        missingOne[id] = id;
    while (!missing.empty()) {
        const unsigned int id = missing.back();
        missing.pop_back();
        for (const unsigned int user : users[id]) {
            if (missingOne[user] != NONE)
                continue;
            missingOne[user] = missingOne[id];
            missing.push_back(user);
        }
    }
    return missingOne;
}

/// The types to which the wanted ones lead, in ascending order.
Ids neededTypes(const References& references, const Ids& wanted) {
    Ordering needed(references);
    for (const unsigned int id : wanted)
        needed.walkFrom(id);
    Ids ids;
    for (unsigned int id = 0; id < references.count(); ++id) {
        if (needed.has(id))
            ids.push_back(id);
    }
    return ids;
}

/// A type that is a part of itself, or NONE.
unsigned int partOfItself(const References& references) {
    Ordering ordering(references, &References::parts);
    for (unsigned int id = 0; id < references.count(); ++id)
        ordering.walkFrom(id);
    Ids placeOf(references.count());
    for (unsigned int place = 0; place < placeOf.size(); ++place)
        placeOf[ordering.order()[place]] = place;
    for (unsigned int id = 0; id < references.count(); ++id) {
        for (const unsigned int part : references.parts(id)) {
            if (placeOf[part] >= placeOf[id])
                return id;
        }
    }
    return NONE;
}

/// Those of the types that are in `order`, with new ids.
TypeList inOrder(TypeList types, const References& references, const Ids& order) {
    Ids newIds(types.size(), NONE);
    for (unsigned int place = 0; place < order.size(); ++place)
        newIds[order[place]] = place;
    TypeList result;
    result.reserve(order.size());
    for (const unsigned int id : order) {
        auto next = references.of(id).begin();
        forEachTypeId(*types[id], [&](unsigned int& field) { field = newIds[*next++]; });
        result.push_back(std::move(types[id]));
    }
    numberSVTypes(result);
    return result;
}

} // namespace

unsigned int TypeTable::reserve() {
    m_types.emplace_back();
    return size() - 1;
}

void TypeTable::fill(unsigned int id, std::unique_ptr<RTBaseType> type, const Place& place) {
    m_types[id] = {std::move(type), place};
}

void TypeTable::leaveOut(unsigned int id, const std::string& what) { m_leftOut[id] = what; }

unsigned int TypeTable::add(std::unique_ptr<RTBaseType> type, const Place& place) {
    m_types.push_back({std::move(type), place});
    return size() - 1;
}

void TypeTable::want(unsigned int id, std::string_view package) {
    const auto count = static_cast<unsigned int>(m_packages.size());
    const auto [number, isNew] = m_packageNumbers.try_emplace(std::string(package), count);
    if (isNew)
        m_packages.emplace_back(package);
    m_wanted.push_back({id, number->second});
}

unsigned int TypeTable::packageNumber(const std::string& package) const {
    const auto found = m_packageNumbers.find(package);
    if (found != m_packageNumbers.end())
        return found->second;
    std::string known;
    for (const std::string& name : m_packages) {
        if (!name.empty())
            known += (known.empty() ? "" : ", ") + name;
    }
    throw ImportError(Place(), "there are no types of a package " + package +
                                   "; those with types: " + (known.empty() ? "none" : known));
}

Ids TypeTable::wantedIds(const std::vector<std::string>& packages) const {
    std::vector<bool> isWanted(m_packages.size(), packages.empty());
    for (const std::string& package : packages)
        isWanted[packageNumber(package)] = true;
    Ids ids;
    for (const Wanted& wanted : m_wanted) {
        if (isWanted[wanted.package])
            ids.push_back(wanted.id);
    }
    return ids;
}

/// Those of the wanted types that have all that they need; the others are noted.
Ids TypeTable::completeTypes(const References& references, const Ids& wanted, Notes& notes) const {
    if (m_leftOut.empty())
        return wanted;
    Ids leftOut;
    for (const auto& [id, what] : m_leftOut)
        leftOut.push_back(id);
    const Ids missing = missingOf(references, leftOut);
    std::vector<bool> isNoted(size(), false);
    Ids complete;
    for (const unsigned int id : wanted) {
        if (missing[id] == NONE) {
            complete.push_back(id);
            continue;
        }
        if (isNoted[id] || missing[id] == id)
            continue;
        isNoted[id] = true;
        notes.add(m_types[id].place, nameOf(*m_types[id].type) + " is left out: it needs " +
                                         m_leftOut.at(missing[id]));
    }
    return complete;
}

TypeList TypeTable::finish(const std::vector<std::string>& packages, Notes& notes) {
    References all;
    for (const Entry& entry : m_types)
        all.add(entry.type.get());
    const Ids wanted = completeTypes(all, wantedIds(packages), notes);
    const Ids needed = neededTypes(all, wanted);
    References references = all.among(needed);
    if (const unsigned int id = partOfItself(references); id != NONE)
        throw ImportError(m_types[needed[id]].place,
                          "the input is damaged: " + nameOf(*m_types[needed[id]].type) +
                              " is a part of itself");
    Ids placeOf(size(), NONE);
    TypeList types;
    for (const unsigned int id : needed) {
        placeOf[id] = static_cast<unsigned int>(types.size());
        types.push_back(std::move(m_types[id].type));
    }
    *this = TypeTable();

    const Ids first = firstEqualTypes(types, references);
    references.redirect([&](unsigned int id) { return first[id]; });
    Ordering ordering(references);
    for (const unsigned int id : wanted)
        ordering.walkFrom(first[placeOf[id]]);
    return inOrder(std::move(types), references, ordering.order());
}

} // namespace Import
