#include "Import/TypeTable.h"

#include "Import/EqualTypes.h"
#include "Import/ImportError.h"
#include "Import/TypeIds.h"

#include <algorithm>
#include <utility>

namespace Import {

using namespace RTTI;

namespace {

constexpr unsigned int NONE = TypeFileFormat::NO_TYPE_ID;

using Ids = std::vector<unsigned int>;
using TypeList = std::vector<std::unique_ptr<RTBaseType>>;

/// Puts what the wanted types lead to in an order in which a type comes after what it needs.
class Ordering {
public:
    using TypeOf = std::function<const RTBaseType&(unsigned int id)>;

    Ordering(unsigned int count, TypeOf typeOf)
        : m_typeOf(std::move(typeOf)), m_isSeen(count, false) {}

    void walkFrom(unsigned int id) {
        enter(id);
        while (!m_visits.empty()) {
            Visit& visit = m_visits.back();
            if (visit.needs.empty()) {
                m_order.push_back(visit.id);
                m_visits.pop_back();
                continue;
            }
            const unsigned int next = visit.needs.back();
            visit.needs.pop_back();
            enter(next);
        }
    }

    const Ids& order() const { return m_order; }

private:
    struct Visit {
        unsigned int id;
        Ids needs; ///< Still to be walked; the next one last.
    };

    void enter(unsigned int id) {
        if (m_isSeen[id])
            return;
        m_isSeen[id] = true;
        Ids needs;
        forEachTypeId(m_typeOf(id), [&](unsigned int needed) { needs.push_back(needed); });
        std::reverse(needs.begin(), needs.end());
        m_visits.push_back({id, std::move(needs)});
    }

    TypeOf m_typeOf;
    std::vector<bool> m_isSeen;
    std::vector<Visit> m_visits;
    Ids m_order;
};

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

/// Calls take(id) for each type without which there is none: members of classes and designated
/// types are but handles.
template <typename Take> void forEachPart(const RTBaseType& type, Take take) {
    if (type.GetClassId() == ClassId::ACCESS)
        return;
    if (type.GetClassId() != ClassId::CLASS)
        forEachTypeId(type, take);
    else if (const unsigned int base = static_cast<const RTClassType&>(type).m_baseClassTypeId;
             base != TypeFileFormat::NO_TYPE_ID)
        take(base);
}

} // namespace

unsigned int TypeTable::reserve(const std::string& what) {
    m_types.push_back({nullptr, Place(), what});
    return size() - 1;
}

void TypeTable::fill(unsigned int id, std::unique_ptr<RTBaseType> type, const Place& place) {
    m_types[id] = {std::move(type), place, ""};
}

unsigned int TypeTable::add(std::unique_ptr<RTBaseType> type, const Place& place) {
    m_types.push_back({std::move(type), place, ""});
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

/// For each type the one that never came because of which it is incomplete, or NONE.
Ids TypeTable::missingTypes() const {
    std::vector<Ids> users(size());
    Ids missing(size(), NONE);
    Ids pending;
    for (unsigned int id = 0; id < size(); ++id) {
        if (m_types[id].type == nullptr) {
            missing[id] = id;
            pending.push_back(id);
        } else {
            forEachTypeId(std::as_const(*m_types[id].type),
                          [&](unsigned int needed) { users[needed].push_back(id); });
        }
    }
    while (!pending.empty()) {
        const unsigned int id = pending.back();
        pending.pop_back();
        for (const unsigned int user : users[id]) {
            if (missing[user] != NONE)
                continue;
            missing[user] = missing[id];
            pending.push_back(user);
        }
    }
    return missing;
}

/// Those of the wanted types that have all that they need; the others are noted.
Ids TypeTable::completeTypes(const Ids& wanted, Notes& notes) {
    const Ids missing = missingTypes();
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
                                         m_types[missing[id]].what);
    }
    return complete;
}

/// Takes those away whose parts have all been taken away; what is left is a part of itself.
void TypeTable::checkParts(const Ids& needed) const {
    Ids partsLeft(size(), 0);
    std::vector<Ids> wholes(size());
    Ids pending;
    for (const unsigned int id : needed) {
        forEachPart(*m_types[id].type, [&](unsigned int part) {
            ++partsLeft[id];
            wholes[part].push_back(id);
        });
        if (partsLeft[id] == 0)
            pending.push_back(id);
    }
    while (!pending.empty()) {
        const unsigned int id = pending.back();
        pending.pop_back();
        for (const unsigned int whole : wholes[id]) {
            if (--partsLeft[whole] == 0)
                pending.push_back(whole);
        }
    }
    for (const unsigned int id : needed) {
        if (partsLeft[id] != 0)
            throw ImportError(m_types[id].place,
                              "the input is damaged: " + nameOf(*m_types[id].type) +
                                  " is a part of itself");
    }
}

/// Makes all ids, those that are wanted as well, lead to the first of equal types.
void TypeTable::joinEqual(Ids& wanted) {
    Ordering needed(
        size(), [this](unsigned int id) -> auto& { return *m_types[id].type; });
    for (const unsigned int id : wanted)
        needed.walkFrom(id);
    Ids ids = needed.order();
    std::sort(ids.begin(), ids.end());
    checkParts(ids);

    Ids placeOf(size(), NONE);
    std::vector<RTBaseType*> types;
    for (const unsigned int id : ids) {
        placeOf[id] = static_cast<unsigned int>(types.size());
        types.push_back(m_types[id].type.get());
    }
    for (RTBaseType* const type : types)
        forEachTypeId(*type, [&](unsigned int& id) { id = placeOf[id]; });
    const Ids first = firstEqualTypes(types);
    const auto join = [&](unsigned int place) { return ids[first[place]]; };
    for (RTBaseType* const type : types)
        forEachTypeId(*type, [&](unsigned int& id) { id = join(id); });
    for (unsigned int& id : wanted)
        id = join(placeOf[id]);
}

TypeList TypeTable::finish(const std::vector<std::string>& packages, Notes& notes) {
    Ids wanted = completeTypes(wantedIds(packages), notes);
    joinEqual(wanted);
    Ordering ordering(
        size(), [this](unsigned int id) -> auto& { return *m_types[id].type; });
    for (const unsigned int id : wanted)
        ordering.walkFrom(id);

    Ids newIds(size(), NONE);
    TypeList types;
    for (const unsigned int id : ordering.order()) {
        newIds[id] = static_cast<unsigned int>(types.size());
        types.push_back(std::move(m_types[id].type));
    }
    for (const auto& type : types)
        forEachTypeId(*type, [&](unsigned int& id) { id = newIds[id]; });
    numberSVTypes(types);
    *this = TypeTable();
    return types;
}

} // namespace Import
