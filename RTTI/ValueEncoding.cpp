// Every getValueEncoding. Structs, unions and classes are "2-State" only if all of their parts are.

#include "RTTI/RTType.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace RTTI {

namespace {

/// The classes that answered "4-State" because of their base class, until they are destroyed.
class MarkedClasses {
public:
    ~MarkedClasses() { s_ended = true; }

    /// The one set of the process; null once the process has destroyed it.
    static std::set<const RTClassType*>* get() {
        static MarkedClasses visitedRTClassTypeSet;
        return s_ended ? nullptr : &visitedRTClassTypeSet.m_classes;
    }

private:
    std::set<const RTClassType*> m_classes;
    static bool s_ended;
};

bool MarkedClasses::s_ended = false;

bool isStructOrUnion(const RTRecordType& record) {
    return record.m_recordKind >= VLOG_UNPACKED_STRUCT &&
           record.m_recordKind <= VLOG_UNPACKED_UNTAGGED_UNION;
}

/// What a type's encoding comes from: another type, an aggregate whose parts decide, or an answer.
struct Encoded {
    const RTBaseType* next;
    const RTAggregateType* aggregate;
    ValueEncoding encoding;
};

Encoded answer(ValueEncoding encoding) { return {nullptr, nullptr, encoding}; }
Encoded partsOf(const RTAggregateType& type) { return {nullptr, &type, ENCODING_4_STATE}; }

Encoded encodedAs(const RTArrayType& array) {
    switch (array.m_arrayKind) {
    case BYTE_UNPADDED_ARRAY: return answer(ENCODING_UNPADDED_BYTE);
    case VLOG_FIXED_UNPACKED_ARRAY:
    case VLOG_FIXED_PACKED_ARRAY: return {array.m_elementType, nullptr, ENCODING_BYTE};
    default: return answer(ENCODING_BYTE);
    }
}

Encoded encodedAs(const RTRecordType& record) {
    if (isStructOrUnion(record))
        return partsOf(record);
    return answer(record.m_recordKind == BYTE_UNPADDED_STRUCT ? ENCODING_UNPADDED_BYTE
                                                              : ENCODING_BYTE);
}

/// Typedefs and enumerations answer for the type that they name, and by their flags without one.
Encoded encodedAs(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF:
        return {static_cast<const RTTypedefType&>(type).m_dataType, nullptr,
                type.RTBaseType::getValueEncoding()};
    case ClassId::DISCRETE_ENUM:
        return {static_cast<const RTDiscreteEnumType&>(type).m_baseType, nullptr,
                type.RTBaseType::getValueEncoding()};
    case ClassId::ARRAY: return encodedAs(static_cast<const RTArrayType&>(type));
    case ClassId::RECORD: return encodedAs(static_cast<const RTRecordType&>(type));
    case ClassId::CLASS: return partsOf(static_cast<const RTClassType&>(type));
    default: return answer(type.getValueEncoding());
    }
}

/// Follows types that answer for others to the ends of their chains. Stations along a long chain
/// are remembered, since many members may lead into the same one.
class ChainEnds {
public:
    Encoded endOf(const RTBaseType& first) {
        Encoded end = encodedAs(first);
        for (std::size_t links = 1; end.next != nullptr; ++links) {
            const RTBaseType* const next = end.next;
            const auto known = m_ends.find(next);
            if (known != m_ends.end()) {
                end = known->second;
                break;
            }
            if (links % STATION == 0)
                m_stations.push_back(next);
            end = encodedAs(*next);
        }
        for (const RTBaseType* station : m_stations)
            m_ends.emplace(station, end);
        m_stations.clear();
        return end;
    }

private:
    static constexpr std::size_t STATION = 64; ///< Links apart, so that ordinary chains have none.

    std::unordered_map<const RTBaseType*, Encoded> m_ends;
    std::vector<const RTBaseType*> m_stations; ///< Of the chain that is being followed.
};

/// Whether an aggregate and everything below it is "2-State": one walk that enters each type once.
///
/// The answer is defined by a walk over every path, on which a class ends the path where it is met
/// again, and so does a struct unless a class was entered in between. That walk ends altogether at
/// the first part that is not "2-State", so as long as it goes on, whatever it has left behind
/// needs no second look. A class is therefore entered once. A struct that is left may still lead to
/// parts that nobody has seen: to those of a struct around it, which ended the path because no
/// class was entered in between. Such structs stay unsettled until the outermost struct of their
/// cycle is left, and are entered again from within a class that is met before. No legal struct
/// contains itself, so this is rare. A struct that holds many classes that hold the struct is not:
/// its parts are passed by from the front as soon as they need no second look.
class EncodingQuery {
public:
    bool isTwoState(const RTAggregateType& outermost);

private:
    struct StructState {
        unsigned int segment;
        std::size_t order;
        bool settled;
        std::size_t partsDone; ///< So many of the first parts need no second look.
    };
    /// An aggregate on the path. `low` is the first struct on the path that ended one below it.
    struct Step {
        const RTAggregateType* aggregate;
        StructState* structure; ///< Null for a class.
        unsigned int segment;   ///< Counts the classes entered: the path since the last one.
        std::size_t nextPart;
        std::size_t order;
        std::size_t low;
    };

    /// Part 0 of a class is its base class.
    static std::size_t partCount(const Step& step) {
        return step.aggregate->m_memberTypes.size() + (step.structure == nullptr ? 1 : 0);
    }
    bool followPart(Step& step);
    bool meet(const RTAggregateType& aggregate);
    void enterClass(const RTClassType& type);
    void enterStruct(const RTAggregateType& type, unsigned int segment);
    void leave();
    void markDerivedClasses() const;

    ChainEnds m_chains;
    std::vector<Step> m_path;
    std::unordered_set<const RTAggregateType*> m_classes;
    std::unordered_map<const RTAggregateType*, StructState> m_structs;
    std::vector<const RTAggregateType*> m_unsettled; ///< Structs, in the order of their entering.
    std::size_t m_order = 0;
    unsigned int m_segments = 0;
};

bool EncodingQuery::isTwoState(const RTAggregateType& outermost) {
    meet(outermost);
    while (!m_path.empty()) {
        Step& step = m_path.back();
        if (step.structure != nullptr)
            step.nextPart = std::max(step.nextPart, step.structure->partsDone);
        if (step.nextPart == partCount(step)) {
            leave();
        } else if (!followPart(step)) {
            markDerivedClasses();
            return false;
        }
    }
    return true;
}

/// False where the part is not "2-State". `step` is not valid afterwards.
bool EncodingQuery::followPart(Step& step) {
    StructState* const structure = step.structure;
    const std::size_t part = step.nextPart++;
    const RTBaseType* type = nullptr;
    if (structure == nullptr && part == 0) {
        type = static_cast<const RTClassType*>(step.aggregate)->m_baseClass;
        if (type == nullptr)
            return true;
    } else {
        type = step.aggregate->m_memberTypes[structure == nullptr ? part - 1 : part];
        if (type == nullptr)
            return false;
    }
    const Encoded end = m_chains.endOf(*type);
    if (end.aggregate == nullptr && end.encoding != ENCODING_2_STATE)
        return false;
    const bool isDone = end.aggregate == nullptr || meet(*end.aggregate);
    if (isDone && structure != nullptr && structure->partsDone == part)
        ++structure->partsDone;
    return true;
}

/// Whether the aggregate needs no second look, however often it is met.
bool EncodingQuery::meet(const RTAggregateType& aggregate) {
    if (aggregate.GetClassId() == ClassId::CLASS) {
        enterClass(static_cast<const RTClassType&>(aggregate));
        return true;
    }
    const unsigned int segment = m_path.empty() ? m_segments : m_path.back().segment;
    const auto known = m_structs.find(&aggregate);
    if (known == m_structs.end() || (!known->second.settled && known->second.segment != segment))
        enterStruct(aggregate, segment);
    else if (known->second.settled)
        return true;
    else if (m_path.back().structure != nullptr)
        m_path.back().low = std::min(m_path.back().low, known->second.order);
    return false;
}

void EncodingQuery::enterClass(const RTClassType& type) {
    const std::set<const RTClassType*>* marked = MarkedClasses::get();
    if ((marked != nullptr && marked->count(&type) != 0) || !m_classes.insert(&type).second)
        return;
    const std::size_t order = m_order++;
    m_path.push_back({&type, nullptr, ++m_segments, 0, order, order});
}

void EncodingQuery::enterStruct(const RTAggregateType& type, unsigned int segment) {
    const std::size_t order = m_order++;
    StructState& state = m_structs[&type];
    state = {segment, order, false, state.partsDone};
    m_path.push_back({&type, &state, segment, 0, order, order});
    m_unsettled.push_back(&type);
}

void EncodingQuery::leave() {
    const Step left = m_path.back();
    m_path.pop_back();
    if (left.structure == nullptr)
        return;
    if (left.low == left.order) {
        const RTAggregateType* settled = nullptr;
        do {
            settled = m_unsettled.back();
            m_unsettled.pop_back();
            m_structs[settled].settled = true;
        } while (settled != left.aggregate);
    } else if (m_path.back().structure != nullptr) {
        m_path.back().low = std::min(m_path.back().low, left.low);
    }
}

/// The classes on the path that had come to their base class keep their mark.
void EncodingQuery::markDerivedClasses() const {
    std::set<const RTClassType*> kept;
    for (const Step& step : m_path) {
        if (step.structure == nullptr && step.nextPart == 1)
            kept.insert(static_cast<const RTClassType*>(step.aggregate));
    }
    if (std::set<const RTClassType*>* marked = MarkedClasses::get())
        marked->merge(kept);
}

ValueEncoding encodingOf(const RTBaseType& type) {
    const Encoded end = ChainEnds().endOf(type);
    if (end.aggregate == nullptr)
        return end.encoding;
    return EncodingQuery().isTwoState(*end.aggregate) ? ENCODING_2_STATE : ENCODING_4_STATE;
}

} // namespace

ValueEncoding RTBaseType::getValueEncoding() const {
    return (m_flags & TypeFileFormat::UNPADDED_BYTE_FLAG) != 0 ? ENCODING_UNPADDED_BYTE
                                                               : ENCODING_BYTE;
}

ValueEncoding RTSeqEnumType::getValueEncoding() const { return m_valueEncoding; }
ValueEncoding RTStringType::getValueEncoding() const { return ENCODING_2_STATE; }
ValueEncoding RTEventType::getValueEncoding() const { return ENCODING_2_STATE; }

ValueEncoding RTFloatType::getValueEncoding() const {
    return m_floatKind == 0 ? ENCODING_BYTE : ENCODING_4_STATE;
}

ValueEncoding RTDiscreteEnumType::getValueEncoding() const { return encodingOf(*this); }
ValueEncoding RTTypedefType::getValueEncoding() const { return encodingOf(*this); }
ValueEncoding RTArrayType::getValueEncoding() const { return encodingOf(*this); }
ValueEncoding RTRecordType::getValueEncoding() const { return encodingOf(*this); }
ValueEncoding RTClassType::getValueEncoding() const { return encodingOf(*this); }

RTClassType::~RTClassType() {
    if (std::set<const RTClassType*>* marked = MarkedClasses::get())
        marked->erase(this);
}

} // namespace RTTI
