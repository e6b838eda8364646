// Every getValueEncoding. Structs, unions and classes are "2-State" only if all of their parts are.

#include "RTTI/RTType.h"

#include <algorithm>
#include <atomic>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace RTTI {

/// The mark of a class that answered "4-State" because of its base class. It is set once and guards
/// nothing else, so that threads need no order among its readers and writers.
class KeptMark {
public:
    static bool isOn(const RTClassType& type) {
        return type.m_isMarked.load(std::memory_order_relaxed);
    }
    static void putOn(const RTClassType& type) {
        type.m_isMarked.store(true, std::memory_order_relaxed);
    }
};

namespace {

bool isStructOrUnion(const RTRecordType& record) {
    return record.m_recordKind >= VLOG_UNPACKED_STRUCT &&
           record.m_recordKind <= VLOG_UNPACKED_UNTAGGED_UNION;
}

/// Where a type's encoding comes from.
enum class Source {
    ANSWER, ///< The type has answered.
    TYPE,   ///< Another type answers.
    STRUCT, ///< The members of a struct or union decide.
    CLASS   ///< The base class and the members of a class decide.
};

struct Encoded {
    const RTBaseType* type; ///< That the encoding comes from; null for an answer.
    Source source;
    ValueEncoding answer;

    bool isAggregate() const { return source >= Source::STRUCT; }
    const RTAggregateType& aggregate() const { return static_cast<const RTAggregateType&>(*type); }
};

Encoded answer(ValueEncoding encoding) { return {nullptr, Source::ANSWER, encoding}; }

/// The encoding of another type or, if there is none, of the type itself.
Encoded behind(const RTBaseType* other, ValueEncoding own) {
    return {other, other != nullptr ? Source::TYPE : Source::ANSWER, own};
}

Encoded encodedAs(const RTArrayType& array) {
    switch (array.m_arrayKind) {
    case BYTE_UNPADDED_ARRAY: return answer(ENCODING_UNPADDED_BYTE);
    case VLOG_FIXED_UNPACKED_ARRAY:
    case VLOG_FIXED_PACKED_ARRAY: return behind(array.m_elementType, ENCODING_BYTE);
    default: return answer(ENCODING_BYTE);
    }
}

Encoded encodedAs(const RTRecordType& record) {
    if (isStructOrUnion(record))
        return {&record, Source::STRUCT, ENCODING_4_STATE};
    return answer(record.m_recordKind == BYTE_UNPADDED_STRUCT ? ENCODING_UNPADDED_BYTE
                                                              : ENCODING_BYTE);
}

Encoded encodedAs(const RTClassType& type) { return {&type, Source::CLASS, ENCODING_4_STATE}; }

/// Typedefs and enumerations answer for the type that they name, and by their flags without one.
/// @{
Encoded encodedAs(const RTTypedefType& alias) {
    return behind(alias.m_dataType, alias.RTBaseType::getValueEncoding());
}
Encoded encodedAs(const RTDiscreteEnumType& enumeration) {
    return behind(enumeration.m_baseType, enumeration.RTBaseType::getValueEncoding());
}
/// @}

Encoded encodedAs(const RTBaseType& type) {
    switch (type.GetClassId()) {
    case ClassId::TYPEDEF: return encodedAs(static_cast<const RTTypedefType&>(type));
    case ClassId::DISCRETE_ENUM: return encodedAs(static_cast<const RTDiscreteEnumType&>(type));
    case ClassId::ARRAY: return encodedAs(static_cast<const RTArrayType&>(type));
    case ClassId::RECORD: return encodedAs(static_cast<const RTRecordType&>(type));
    case ClassId::CLASS: return encodedAs(static_cast<const RTClassType&>(type));
    default: return answer(type.getValueEncoding());
    }
}

/// Whether a part of an aggregate is its base class: part 0 of a class, which need not have one.
bool isBase(bool isClass, std::size_t part) { return isClass && part == 0; }

std::size_t partCount(const RTAggregateType& aggregate, bool isClass) {
    return aggregate.m_memberTypes.size() + (isClass ? 1 : 0);
}

/// The type of a part, or null.
const RTBaseType* partOf(const RTAggregateType& aggregate, bool isClass, std::size_t part) {
    return isBase(isClass, part) ? static_cast<const RTClassType&>(aggregate).m_baseClass
                                 : aggregate.m_memberTypes[part - (isClass ? 1 : 0)];
}

/// Follows types that answer for others to the ends of their chains. Stations along a long chain
/// are remembered, since many members may lead into the same one.
class ChainEnds {
public:
    Encoded endOf(const RTBaseType& first) {
        Encoded end = encodedAs(first);
        for (std::size_t links = 1; end.source == Source::TYPE; ++links) {
            const RTBaseType* const next = end.type;
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

/// Whether an aggregate and everything below it is "2-State": one walk over the types.
///
/// The answer is defined by a walk over every path, on which a class ends the path where it is met
/// again, and so does a struct unless a class was entered in between. That walk ends altogether at
/// the first part that is not "2-State", so as long as it goes on, whatever it has left behind
/// needs no second look. A class is therefore entered once.
///
/// A struct may be entered again behind a class, and has to be where it leads to parts that nobody
/// has seen: to those of a struct around it that ended the path because no class was entered in
/// between. A cursor, which all open occurrences of a struct share, passes the parts at its front
/// that need no second look; a struct is done once all of its parts are passed. The path since the
/// last class is a segment. The outermost struct of a segment passes each part that it has
/// followed, for there is nothing else that could have ended a path in it, and once it is done, so
/// is whatever was entered below it. No legal struct contains itself, so all this is rare. A struct
/// that holds many classes that hold the struct is not.
class EncodingQuery {
public:
    /// The end of a chain, with an aggregate that is the outermost one.
    bool isTwoState(const Encoded& outermost);

private:
    struct Struct {
        unsigned int segment;    ///< Where it was entered last.
        const Struct* outermost; ///< Of that segment.
        std::size_t cursor;
        std::size_t partCount;

        bool isOutermost() const { return outermost == this; }
        bool isDone() const {
            return cursor == partCount || outermost->cursor == outermost->partCount;
        }
    };
    /// An aggregate on the path.
    struct Step {
        const RTAggregateType* aggregate;
        Struct* structure;    ///< Null for a class.
        unsigned int segment; ///< Counts the classes entered.
        std::size_t nextPart;
    };

    static void passPart(const Step& step);
    bool followPart();
    bool meet(const Encoded& end);
    void enterClass(const RTClassType& type);
    bool meetStruct(const RTAggregateType& type);
    void leave();
    void markDerivedClasses() const;

    ChainEnds m_chains;
    std::vector<Step> m_path;
    std::unordered_set<const RTAggregateType*> m_classes;
    std::unordered_map<const RTAggregateType*, Struct> m_structs;
    unsigned int m_segments = 0;
};

bool EncodingQuery::isTwoState(const Encoded& outermost) {
    meet(outermost);
    while (!m_path.empty()) {
        Step& step = m_path.back();
        if (step.structure != nullptr)
            step.nextPart = std::max(step.nextPart, step.structure->cursor);
        if (step.nextPart == partCount(*step.aggregate, step.structure == nullptr) ||
            (step.structure != nullptr && step.structure->isDone())) {
            leave();
        } else if (!followPart()) {
            markDerivedClasses();
            return false;
        }
    }
    return true;
}

/// False where the part is not "2-State".
bool EncodingQuery::followPart() {
    Step& step = m_path.back();
    const std::size_t place = m_path.size() - 1;
    const bool isClass = step.structure == nullptr;
    const std::size_t part = step.nextPart++;
    const RTBaseType* const type = partOf(*step.aggregate, isClass, part);
    if (type == nullptr)
        return isBase(isClass, part);
    const Encoded end = m_chains.endOf(*type);
    if (!end.isAggregate() && end.answer != ENCODING_2_STATE)
        return false;
    if (!end.isAggregate() || meet(end))
        passPart(m_path[place]);
    return true;
}

/// After the part that the step followed last turned out to need no second look.
void EncodingQuery::passPart(const Step& step) {
    if (step.structure != nullptr && step.structure->cursor + 1 == step.nextPart)
        ++step.structure->cursor;
}

/// Whether the part that led here needs no second look.
bool EncodingQuery::meet(const Encoded& end) {
    if (end.source == Source::STRUCT)
        return meetStruct(end.aggregate());
    enterClass(static_cast<const RTClassType&>(*end.type));
    return true;
}

void EncodingQuery::enterClass(const RTClassType& type) {
    if (!KeptMark::isOn(type) && m_classes.insert(&type).second)
        m_path.push_back({&type, nullptr, ++m_segments, 0});
}

bool EncodingQuery::meetStruct(const RTAggregateType& type) {
    const Step* const outer = m_path.empty() ? nullptr : &m_path.back();
    const unsigned int segment = outer != nullptr ? outer->segment : 0;
    const auto [known, isNew] = m_structs.try_emplace(&type);
    Struct& structure = known->second;
    if (isNew)
        structure = {segment, &structure, 0, type.m_memberTypes.size()};
    else if (structure.isDone())
        return true;
    else if (outer != nullptr && structure.segment == segment)
        return outer->structure != nullptr && outer->structure->isOutermost();
    structure.segment = segment;
    structure.outermost =
        outer != nullptr && outer->structure != nullptr ? outer->structure->outermost : &structure;
    m_path.push_back({&type, &structure, segment, structure.cursor});
    return false;
}

void EncodingQuery::leave() {
    Struct* const left = m_path.back().structure;
    m_path.pop_back();
    if (left == nullptr)
        return;
    if (left->isDone() || left->isOutermost())
        left->cursor = left->partCount;
    if (!m_path.empty() && m_path.back().structure != nullptr &&
        (left->isDone() || m_path.back().structure->isOutermost()))
        passPart(m_path.back());
}

/// The classes on the path that had come to their base class keep their mark.
void EncodingQuery::markDerivedClasses() const {
    for (const Step& step : m_path) {
        if (isBase(step.structure == nullptr, step.nextPart - 1))
            KeptMark::putOn(static_cast<const RTClassType&>(*step.aggregate));
    }
}

/// The end of a short chain that begins like this; of a longer one some station.
Encoded shortEndOf(Encoded end) {
    constexpr int LINKS = 8;
    for (int links = 0; end.source == Source::TYPE && links < LINKS; ++links)
        end = encodedAs(*end.type);
    return end;
}

/// Answers as EncodingQuery does, without its tables, where few aggregates are below. Of one that
/// leads back to itself there are too many: every round is like the first.
class SmallEncodingQuery {
public:
    /// Whether the end of a chain is "2-State". False if there are too many, too.
    bool isTwoState(Encoded end);

    bool isTooLarge() const { return m_isTooLarge; }

private:
    static constexpr int DEEPEST = 8;
    static constexpr int MOST = 64;

    bool isTypeTwoState(const RTBaseType& type) { return isTwoState(shortEndOf(encodedAs(type))); }
    bool arePartsTwoState(Encoded end);
    bool isBaseTwoState(const RTClassType& derived);

    int m_depth = 0;
    int m_entered = 0;
    bool m_isTooLarge = false;
};

bool SmallEncodingQuery::isTwoState(Encoded end) {
    if (end.source == Source::ANSWER)
        return end.answer == ENCODING_2_STATE;
    m_isTooLarge = end.source == Source::TYPE || m_depth == DEEPEST || m_entered++ == MOST;
    if (m_isTooLarge)
        return false;
    if (end.source == Source::CLASS && KeptMark::isOn(static_cast<const RTClassType&>(*end.type)))
        return true;
    ++m_depth;
    const bool areTwoState = arePartsTwoState(end);
    --m_depth;
    return areTwoState;
}

bool SmallEncodingQuery::arePartsTwoState(Encoded end) {
    if (end.source == Source::CLASS && !isBaseTwoState(static_cast<const RTClassType&>(*end.type)))
        return false;
    for (const RTBaseType* member : end.aggregate().m_memberTypes) {
        if (member == nullptr || !isTypeTwoState(*member))
            return false;
    }
    return true;
}

/// A class that is "4-State" because of its base class keeps its mark.
bool SmallEncodingQuery::isBaseTwoState(const RTClassType& derived) {
    if (derived.m_baseClass == nullptr || isTypeTwoState(*derived.m_baseClass))
        return true;
    if (!m_isTooLarge)
        KeptMark::putOn(derived);
    return false;
}

ValueEncoding encodingOf(Encoded end) {
    end = shortEndOf(end);
    if (end.source == Source::TYPE)
        end = ChainEnds().endOf(*end.type);
    if (end.source == Source::ANSWER)
        return end.answer;
    SmallEncodingQuery small;
    bool isTwoState = small.isTwoState(end);
    if (small.isTooLarge())
        isTwoState = EncodingQuery().isTwoState(end);
    return isTwoState ? ENCODING_2_STATE : ENCODING_4_STATE;
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

ValueEncoding RTDiscreteEnumType::getValueEncoding() const { return encodingOf(encodedAs(*this)); }
ValueEncoding RTTypedefType::getValueEncoding() const { return encodingOf(encodedAs(*this)); }
ValueEncoding RTArrayType::getValueEncoding() const { return encodingOf(encodedAs(*this)); }
ValueEncoding RTRecordType::getValueEncoding() const { return encodingOf(encodedAs(*this)); }
ValueEncoding RTClassType::getValueEncoding() const { return encodingOf(encodedAs(*this)); }

RTClassType::~RTClassType() = default;

} // namespace RTTI
