#include "Import/TypeTable.h"

#include "Import/EqualTypes.h"
#include "Import/ImportError.h"
#include "Import/References.h"
#include "Import/TypeIds.h"
#include "Import/TypeSource.h"

#include <numeric>
#include <utility>

namespace Import {

using namespace RTTI;

namespace {

constexpr unsigned int NONE = TypeFileFormat::NO_TYPE_ID;

using Ids = std::vector<unsigned int>;

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

/// "p::state_e", or words for a type without a name.
std::string labelOf(std::string_view name) {
    return std::string(name.empty() ? "a type without a name" : name);
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

/// The first type with a part that does not come before it in `places`, or NONE.
unsigned int notBehindItsParts(const References& references, const Ids& places) {
    for (unsigned int id = 0; id < references.count(); ++id) {
        for (const unsigned int part : references.parts(id)) {
            if (places[part] >= places[id])
                return id;
        }
    }
    return NONE;
}

/// The wanted types and those that they need, each after those that it needs.
Ids orderOf(const References& references, const Ids& wanted) {
    Ordering ordering(references);
    for (const unsigned int id : wanted)
        ordering.walkFrom(id);
    return ordering.order();
}

/// A type that is a part of itself, or NONE.
unsigned int partOfItself(const References& references) {
    Ids places(references.count());
    std::iota(places.begin(), places.end(), 0U);
    // They come in an order that only members of classes and designated types can upset.
    if (notBehindItsParts(references, places) == NONE)
        return NONE;
    Ordering ordering(references, &References::parts);
    for (unsigned int id = 0; id < references.count(); ++id)
        ordering.walkFrom(id);
    for (unsigned int place = 0; place < places.size(); ++place)
        places[ordering.order()[place]] = place;
    return notBehindItsParts(references, places);
}

} // namespace

TypeTable::TypeTable() = default;

TypeTable::~TypeTable() = default;

unsigned int TypeTable::size() const {
    return static_cast<unsigned int>(m_types.size()) +
           (m_source != nullptr ? m_source->count() : 0);
}

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

void TypeTable::addSource(std::unique_ptr<TypeSource> source) { m_source = std::move(source); }

/// Those of all types.
References TypeTable::takeReferences() {
    References all;
    for (const Entry& entry : m_types)
        all.add(entry.type.get());
    if (m_source != nullptr)
        all.append(m_source->takeReferences());
    return all;
}

std::string_view TypeTable::nameOf(unsigned int id) const {
    if (id >= m_types.size())
        return m_source->nameOf(id - static_cast<unsigned int>(m_types.size()));
    const char* const name = m_types[id].type->m_name;
    return name == nullptr ? std::string_view() : name;
}

Place TypeTable::placeOf(unsigned int id) const {
    return id < m_types.size() ? m_types[id].place
                               : m_source->placeOf(id - static_cast<unsigned int>(m_types.size()));
}

RTBaseType& TypeTable::object(unsigned int id) {
    return id < m_types.size() ? *m_types[id].type
                               : m_source->object(id - static_cast<unsigned int>(m_types.size()));
}

void TypeTable::want(unsigned int id, std::string_view package) {
    const bool isLikeLast = !m_wanted.empty() && m_packages[m_wanted.back().package] == package;
    m_wanted.push_back({id, isLikeLast ? m_wanted.back().package : numberPackage(package)});
}

/// The number of a package, a new one if it is new.
unsigned int TypeTable::numberPackage(std::string_view package) {
    const auto count = static_cast<unsigned int>(m_packages.size());
    const auto [number, isNew] = m_packageNumbers.try_emplace(std::string(package), count);
    if (isNew)
        m_packages.emplace_back(package);
    return number->second;
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
        notes.add(placeOf(id),
                  labelOf(nameOf(id)) + " is left out: it needs " + m_leftOut.at(missing[id]));
    }
    return complete;
}

/// Hands over the types that are the first of those that they equal, with new ids.
void TypeTable::handOver(const Ids& order, const References& references, const TakeType& take) {
    const Ids first = firstEqualTypes(
        references, [&](unsigned int place) { return nameOf(order[place]); },
        [&](unsigned int place) -> RTBaseType& { return object(order[place]); });
    Ids newIds(order.size());
    unsigned int count = 0;
    for (unsigned int place = 0; place < order.size(); ++place)
        newIds[place] = first[place] == place ? count++ : newIds[first[place]];
    int nextSVType = 1;
    for (unsigned int place = 0; place < order.size(); ++place) {
        if (first[place] != place)
            continue;
        RTBaseType& type = object(order[place]);
        auto next = references.of(place).begin();
        forEachTypeId(type, [&](unsigned int& field) { field = newIds[*next++]; });
        if (hasSVTypeId(type))
            type.setSVTypeId(nextSVType++);
        take(type);
    }
}

void TypeTable::finish(const std::vector<std::string>& packages, Notes& notes,
                       const TakeType& take) {
    References references = takeReferences();
    const Ids order = orderOf(references, completeTypes(references, wantedIds(packages), notes));
    references.keep(order);
    if (const unsigned int place = partOfItself(references); place != NONE)
        throw ImportError(placeOf(order[place]),
                          "the input is damaged: " + labelOf(nameOf(order[place])) +
                              " is a part of itself");
    handOver(order, references, take);
}

} // namespace Import
