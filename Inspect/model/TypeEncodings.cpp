#include "Inspect/model/TypeEncodings.h"

namespace Inspect {

using namespace RTTI;

namespace {

/// Whether the encodings of its parts make up that of the type.
bool isMadeOfParts(const RTBaseType& type) {
    if (type.GetClassId() == ClassId::CLASS)
        return true;
    if (type.GetClassId() != ClassId::RECORD)
        return false;
    const RecordKind kind = static_cast<const RTRecordType&>(type).m_recordKind;
    return kind >= VLOG_UNPACKED_STRUCT && kind <= VLOG_UNPACKED_UNTAGGED_UNION;
}

/// The type that answers in place of this one; null where it answers itself.
const RTBaseType* deputyOf(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF: return static_cast<const RTTypedefType&>(type).m_dataType;
    case ClassId::DISCRETE_ENUM: return static_cast<const RTDiscreteEnumType&>(type).m_baseType;
    case ClassId::ARRAY: {
        const auto& array = static_cast<const RTArrayType&>(type);
        const bool isElements = array.m_arrayKind == VLOG_FIXED_UNPACKED_ARRAY ||
                                array.m_arrayKind == VLOG_FIXED_PACKED_ARRAY;
        return isElements ? array.m_elementType : nullptr;
    }
    default: return nullptr;
    }
}

/// Passes on the types of the members, and the base class where there is one. A null pointer is a
/// member whose type is missing.
template <typename Use> void forEachPart(const RTAggregateType& aggregate, Use use) {
    for (const RTBaseType* part : aggregate.m_memberTypes)
        use(part);
    if (aggregate.GetClassId() == ClassId::CLASS) {
        const auto& derived = static_cast<const RTClassType&>(aggregate);
        if (derived.m_baseClass != nullptr)
            use(derived.m_baseClass);
    }
}

} // namespace

ValueEncoding TypeEncodings::of(const RTBaseType& type) {
    const RTBaseType& end = endOf(type);
    if (!isMadeOfParts(end))
        return end.getValueEncoding();
    return isTwoState(static_cast<const RTAggregateType&>(end)) ? ENCODING_2_STATE
                                                                : ENCODING_4_STATE;
}

/// Only where long chains end is worth remembering.
const RTBaseType& TypeEncodings::endOf(const RTBaseType& type) {
    constexpr int SHORT = 16;
    const RTBaseType* end = &type;
    for (int i = 0; i < SHORT; ++i) {
        const RTBaseType* const deputy = deputyOf(*end);
        if (deputy == nullptr)
            return *end;
        end = deputy;
    }
    std::vector<const RTBaseType*> chain;
    while (const RTBaseType* deputy = deputyOf(*end)) {
        const auto known = m_ends.find(end);
        if (known != m_ends.end()) {
            end = known->second;
            break;
        }
        chain.push_back(end);
        end = deputy;
    }
    for (const RTBaseType* link : chain)
        m_ends.emplace(link, end);
    return *end;
}

bool TypeEncodings::isTwoState(const RTAggregateType& aggregate) {
    const auto known = m_isTwoState.find(&aggregate);
    if (known != m_isTwoState.end())
        return known->second;
    explore(aggregate);
    return m_isTwoState.at(&aggregate);
}

/// Goes once through the aggregates below `first` that are not known yet, and back from each that
/// has a part of another encoding than "2-State" to all that lead to it. A way that comes back to
/// an aggregate adds nothing: what lies below that one is looked at anyway.
void TypeEncodings::explore(const RTAggregateType& first) {
    std::unordered_map<const RTBaseType*, std::vector<const RTBaseType*>> users;
    std::vector<const RTBaseType*> unseen{&first};
    std::vector<const RTBaseType*> fourState;
    m_isTwoState.emplace(&first, true);
    while (!unseen.empty()) {
        const auto& aggregate = static_cast<const RTAggregateType&>(*unseen.back());
        unseen.pop_back();
        bool isTwoState = true;
        forEachPart(aggregate, [&](const RTBaseType* part) {
            const RTBaseType* const end = part != nullptr ? &endOf(*part) : nullptr;
            if (end == nullptr || !isMadeOfParts(*end)) {
                isTwoState &= end != nullptr && end->getValueEncoding() == ENCODING_2_STATE;
                return;
            }
            const auto [state, isNew] = m_isTwoState.emplace(end, true);
            if (isNew)
                unseen.push_back(end);
            isTwoState &= state->second;
            // What an earlier call has found does not change any more.
            if (isNew || end == &first || users.find(end) != users.end())
                users[end].push_back(&aggregate);
        });
        if (!isTwoState)
            fourState.push_back(&aggregate);
    }
    while (!fourState.empty()) {
        const RTBaseType* const type = fourState.back();
        fourState.pop_back();
        bool& isTwoState = m_isTwoState.at(type);
        if (!isTwoState)
            continue;
        isTwoState = false;
        const auto known = users.find(type);
        if (known != users.end())
            fourState.insert(fourState.end(), known->second.begin(), known->second.end());
    }
}

} // namespace Inspect
