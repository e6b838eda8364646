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

/// What a type's encoding comes from: an aggregate whose parts decide, or else an answer.
struct Encoded {
    const RTAggregateType* aggregate;
    ValueEncoding encoding;
};

/// Follows typedefs, base types of enumerations and elements of SystemVerilog arrays to the end.
Encoded encodedAs(const RTBaseType& outermost) {
    const RTBaseType* type = &outermost;
    for (;;) {
        const RTBaseType* next = nullptr;
        ValueEncoding withoutNext = type->RTBaseType::getValueEncoding();
        switch (type->GetClassId()) {
        case ClassId::TYPEDEF: next = static_cast<const RTTypedefType*>(type)->m_dataType; break;
        case ClassId::DISCRETE_ENUM:
            next = static_cast<const RTDiscreteEnumType*>(type)->m_baseType;
            break;
        case ClassId::ARRAY: {
            const auto& array = static_cast<const RTArrayType&>(*type);
            withoutNext =
                array.m_arrayKind == BYTE_UNPADDED_ARRAY ? ENCODING_UNPADDED_BYTE : ENCODING_BYTE;
            if (array.m_arrayKind == VLOG_FIXED_UNPACKED_ARRAY ||
                array.m_arrayKind == VLOG_FIXED_PACKED_ARRAY)
                next = array.m_elementType;
            break;
        }
        case ClassId::RECORD: {
            const auto& record = static_cast<const RTRecordType&>(*type);
            if (isStructOrUnion(record))
                return {&record, ENCODING_4_STATE};
            return {nullptr, record.m_recordKind == BYTE_UNPADDED_STRUCT ? ENCODING_UNPADDED_BYTE
                                                                         : ENCODING_BYTE};
        }
        case ClassId::CLASS: return {static_cast<const RTClassType*>(type), ENCODING_4_STATE};
        default: return {nullptr, type->getValueEncoding()};
        }
        if (next == nullptr)
            return {nullptr, withoutNext};
        type = next;
    }
}

/// Whether an aggregate and everything below it is "2-State": one walk that enters each type once.
///
/// The answer is defined by a walk over every path, on which a class ends the path where it is met
/// again, and so does a struct unless a class was entered in between. That walk ends altogether at
/// the first part that is not "2-State", so as long as it goes on, whatever it has left behind
/// needs no second look. A class is therefore entered once. A struct that is left may still lead to
/// parts that nobody has seen: to those of a struct around it, which ended the path because no
/// class was entered in between. Such structs stay unsettled until the outermost struct of their
/// cycle is left, and are entered again from within a class that is met before. No legal struct
/// contains itself, so this is rare.
class EncodingQuery {
public:
    bool isTwoState(const RTAggregateType& outermost);

private:
    /// An aggregate on the path. `low` is the first struct on the path that ended one below it.
    struct Step {
        const RTAggregateType* aggregate;
        bool isClass;
        unsigned int segment; ///< Counts the classes entered: the path since the last one.
        std::size_t nextPart;
        std::size_t order;
        std::size_t low;
    };
    struct StructState {
        unsigned int segment;
        std::size_t order;
        bool settled;
    };

    /// Part 0 of a class is its base class.
    static std::size_t partCount(const Step& step) {
        return step.aggregate->m_memberTypes.size() + (step.isClass ? 1 : 0);
    }
    bool followPart(Step& step);
    void meet(const RTAggregateType& aggregate);
    void enter(const RTAggregateType& aggregate, bool isClass, unsigned int segment);
    void leave();
    void markDerivedClasses() const;

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
    const std::size_t part = step.nextPart++;
    const RTBaseType* type = nullptr;
    if (step.isClass && part == 0) {
        type = static_cast<const RTClassType*>(step.aggregate)->m_baseClass;
        if (type == nullptr)
            return true;
    } else {
        type = step.aggregate->m_memberTypes[step.isClass ? part - 1 : part];
        if (type == nullptr)
            return false;
    }
    const Encoded encoded = encodedAs(*type);
    if (encoded.aggregate == nullptr)
        return encoded.encoding == ENCODING_2_STATE;
    meet(*encoded.aggregate);
    return true;
}

void EncodingQuery::meet(const RTAggregateType& aggregate) {
    const unsigned int segment = m_path.empty() ? m_segments : m_path.back().segment;
    if (aggregate.GetClassId() == ClassId::CLASS) {
        const std::set<const RTClassType*>* marked = MarkedClasses::get();
        const bool isMarked =
            marked != nullptr && marked->count(static_cast<const RTClassType*>(&aggregate)) != 0;
        if (!isMarked && m_classes.insert(&aggregate).second)
            enter(aggregate, true, ++m_segments);
        return;
    }
    const auto known = m_structs.find(&aggregate);
    if (known == m_structs.end()) {
        enter(aggregate, false, segment);
    } else if (!known->second.settled) {
        if (known->second.segment != segment)
            enter(aggregate, false, segment);
        else if (!m_path.back().isClass)
            m_path.back().low = std::min(m_path.back().low, known->second.order);
    }
}

void EncodingQuery::enter(const RTAggregateType& aggregate, bool isClass, unsigned int segment) {
    const std::size_t order = m_order++;
    m_path.push_back({&aggregate, isClass, segment, 0, order, order});
    if (!isClass) {
        m_structs[&aggregate] = {segment, order, false};
        m_unsettled.push_back(&aggregate);
    }
}

void EncodingQuery::leave() {
    const Step left = m_path.back();
    m_path.pop_back();
    if (left.isClass)
        return;
    if (left.low == left.order) {
        const RTAggregateType* settled = nullptr;
        do {
            settled = m_unsettled.back();
            m_unsettled.pop_back();
            m_structs[settled].settled = true;
        } while (settled != left.aggregate);
    } else if (!m_path.back().isClass) {
        m_path.back().low = std::min(m_path.back().low, left.low);
    }
}

/// The classes on the path that had come to their base class keep their mark.
void EncodingQuery::markDerivedClasses() const {
    std::set<const RTClassType*> kept;
    for (const Step& step : m_path) {
        if (step.isClass && step.nextPart == 1)
            kept.insert(static_cast<const RTClassType*>(step.aggregate));
    }
    if (std::set<const RTClassType*>* marked = MarkedClasses::get())
        marked->merge(kept);
}

ValueEncoding encodingOf(const RTBaseType& type) {
    const Encoded encoded = encodedAs(type);
    if (encoded.aggregate == nullptr)
        return encoded.encoding;
    return EncodingQuery().isTwoState(*encoded.aggregate) ? ENCODING_2_STATE : ENCODING_4_STATE;
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
