#include "tests/support/TypeGraph.h"

#include "RTTI/AggregateClasses.h"

#include <algorithm>
#include <array>

namespace RTTITest {

using namespace RTTI;

RTSeqEnumType& TypeGraph::seqEnum(ValueEncoding encoding) {
    auto& type = add<RTSeqEnumType>();
    type.m_valueEncoding = encoding;
    return type;
}

RTDiscreteEnumType& TypeGraph::discreteEnum(const RTBaseType* base, Ranges ranges) {
    auto& type = add<RTDiscreteEnumType>();
    type.m_baseType = base;
    type.m_constraints = std::move(ranges);
    return type;
}

RTTypedefType& TypeGraph::alias(const RTBaseType* aliased, Ranges ranges) {
    auto& type = add<RTTypedefType>();
    type.m_dataType = aliased;
    type.m_constraints = std::move(ranges);
    return type;
}

RTArrayType& TypeGraph::array(ArrayKind kind, const RTBaseType* element, std::size_t dimensions,
                              Ranges ranges) {
    auto& type = add<RTArrayType>();
    type.m_arrayKind = kind;
    type.m_elementType = element;
    type.m_indexTypeIds.assign(dimensions, 0);
    type.m_constraints = std::move(ranges);
    return type;
}

RTArrayType& TypeGraph::array(const RTBaseType* element, Ranges ranges) {
    const std::size_t dimensions = ranges.size();
    return array(VHDL_ARRAY, element, dimensions, std::move(ranges));
}

RTRecordType& TypeGraph::record(RecordKind kind, const Links& members) {
    auto& type = add<RTRecordType>();
    type.m_recordKind = kind;
    for (const RTBaseType* member : members)
        addMember(type, member);
    return type;
}

RTRecordType& TypeGraph::structure(const Links& members) {
    return record(VLOG_UNPACKED_STRUCT, members);
}

RTClassType& TypeGraph::classType(const Links& members, const RTBaseType* base) {
    auto& type = add<RTClassType>();
    type.m_baseClass = base;
    for (const RTBaseType* member : members)
        addMember(type, member);
    return type;
}

namespace {

void appendMember(RTAggregateType& aggregate, std::unique_ptr<RTAggregateType::t_Member> member,
                  const RTBaseType* type, Ranges ranges) {
    member->m_constraints = std::move(ranges);
    aggregate.m_members.push_back(member.get());
    static_cast<void>(member.release()); // The aggregate deletes it.
    aggregate.m_memberTypes.push_back(type);
}

} // namespace

void addMember(RTRecordType& record, const RTBaseType* type, Ranges ranges) {
    appendMember(record, std::make_unique<RTAggregateType::t_Member>(), type, std::move(ranges));
}

void addMember(RTClassType& type, const RTBaseType* memberType, Ranges ranges) {
    appendMember(type, std::make_unique<RTClassType::t_ClassMember>(), memberType,
                 std::move(ranges));
}

namespace {

std::size_t below(std::mt19937& random, std::size_t limit) { return random() % limit; }

bool oneIn(std::mt19937& random, std::size_t chances) { return below(random, chances) == 0; }

/// Makes the types first, then links those that hand a question on, the aggregates last.
class GraphMaker {
public:
    explicit GraphMaker(std::mt19937& random)
        : m_random(random), m_oddLeaves(2 + below(random, 12)) {}

    TypeGraph make() {
        const std::size_t count = 1 + below(m_random, oneIn(m_random, 10) ? 12 : 8);
        for (std::size_t i = 0; i < count; ++i)
            addType();
        for (std::size_t i = 0; i < count; ++i)
            linkPassage(i);
        for (std::size_t i = 0; i < count; ++i)
            linkAggregate(i);
        return std::move(m_graph);
    }

private:
    void addType() {
        switch (below(m_random, 10)) {
        case 0:
        case 1:
        case 2: m_graph.classType(); break;
        case 3:
        case 4:
        case 5: m_graph.record(recordKind()); break;
        case 6: addArray(); break;
        case 7: m_graph.alias(nullptr, randomRanges(m_random)); break;
        case 8:
            if (oneIn(m_random, 2))
                m_graph.discreteEnum(nullptr, randomRanges(m_random));
            else
                addArray();
            break;
        default: addLeaf();
        }
    }

    RecordKind recordKind() {
        const unsigned int first = oneIn(m_random, 6) ? RECORD_KIND_INVALID : VLOG_UNPACKED_STRUCT;
        const std::size_t kinds = first == RECORD_KIND_INVALID ? 11 : 6;
        return static_cast<RecordKind>(first + below(m_random, kinds));
    }

    void addArray() {
        static constexpr std::array kinds{VHDL_ARRAY, VLOG_FIXED_UNPACKED_ARRAY,
                                          VLOG_FIXED_PACKED_ARRAY, BYTE_UNPADDED_ARRAY,
                                          VLOG_FIXED_UNPACKED_ARRAY};
        const ArrayKind kind = kinds[below(m_random, kinds.size())];
        m_graph.array(kind, nullptr, below(m_random, 3), randomRanges(m_random));
    }

    /// Mostly "2-State", so that questions go deep.
    void addLeaf() {
        if (!oneIn(m_random, m_oddLeaves)) {
            switch (below(m_random, 3)) {
            case 0: m_graph.add<RTStringType>(); break;
            case 1: m_graph.add<RTEventType>(); break;
            default: m_graph.seqEnum(ENCODING_2_STATE);
            }
            return;
        }
        switch (below(m_random, 5)) {
        case 0: m_graph.seqEnum(static_cast<ValueEncoding>(below(m_random, 4))); break;
        case 1:
            m_graph.add<RTFloatType>().m_floatKind = static_cast<int>(below(m_random, 3));
            break;
        case 2: m_graph.add<RTIntType>().m_flags = static_cast<unsigned int>(m_random()); break;
        case 3: m_graph.add<RTAccessType>(); break;
        default: m_graph.container<RTQueueType>(nullptr);
        }
    }

    /// The link of a type that hands a question on to another one; null for any other type.
    const RTBaseType** passageLink(RTBaseType& type) {
        if (auto* array = dynamic_cast<RTArrayType*>(&type))
            return &array->m_elementType;
        if (auto* alias = dynamic_cast<RTTypedefType*>(&type))
            return &alias->m_dataType;
        if (auto* enumeration = dynamic_cast<RTDiscreteEnumType*>(&type))
            return &enumeration->m_baseType;
        return nullptr;
    }

    /// Passages lead to passages that were made before them, to aggregates and to leaves; access
    /// types, which no query looks behind, anywhere.
    void linkPassage(std::size_t index) {
        if (auto* access = dynamic_cast<RTAccessType*>(&m_graph[index]))
            access->m_refType = &m_graph[below(m_random, m_graph.size())];
        const RTBaseType** link = passageLink(m_graph[index]);
        if (link == nullptr || oneIn(m_random, 12))
            return;
        const std::size_t target = below(m_random, m_graph.size());
        if (target < index || passageLink(m_graph[target]) == nullptr)
            *link = &m_graph[target];
    }

    void linkAggregate(std::size_t index) {
        RTBaseType& type = m_graph[index];
        if (!isAggregate(type.GetClassId()))
            return;
        auto* classType = dynamic_cast<RTClassType*>(&type);
        if (classType != nullptr && oneIn(m_random, 2))
            linkBase(*classType, index);
        const std::size_t members = below(m_random, 4);
        for (std::size_t i = 0; i < members; ++i) {
            const bool isMissing = oneIn(m_random, 24);
            const RTBaseType* target =
                isMissing ? nullptr : &m_graph[below(m_random, m_graph.size())];
            if (classType != nullptr)
                addMember(*classType, target, randomRanges(m_random));
            else
                addMember(static_cast<RTRecordType&>(type), target, randomRanges(m_random));
        }
    }

    /// A class behind the link must have been made before `type`, any other type will do.
    void linkBase(RTClassType& type, std::size_t index) {
        RTBaseType* target = &m_graph[below(m_random, m_graph.size())];
        const RTBaseType* behind = target;
        while (const RTBaseType** link = passageLink(const_cast<RTBaseType&>(*behind))) {
            if (*link == nullptr)
                break;
            behind = *link;
        }
        if (dynamic_cast<const RTClassType*>(behind) == nullptr || madeBefore(behind, index))
            type.m_baseClass = target;
    }

    bool madeBefore(const RTBaseType* type, std::size_t index) const {
        for (std::size_t i = 0; i < index; ++i) {
            if (&m_graph[i] == type)
                return true;
        }
        return false;
    }

    std::mt19937& m_random;
    std::size_t m_oddLeaves;
    TypeGraph m_graph;
};

} // namespace

TypeGraph randomGraph(std::mt19937& random) { return GraphMaker(random).make(); }

Ranges randomRanges(std::mt19937& random) {
    static constexpr std::array<FullConstraints, 7> choices{
        {{0, 7, 1}, {3, 0, 0}, {0, 3, 1}, {1, 4, 1}, OPEN, OPEN, FULL_RANGE}};
    Ranges ranges(below(random, 4));
    std::generate(ranges.begin(), ranges.end(),
                  [&] { return choices[below(random, choices.size())]; });
    return ranges;
}

} // namespace RTTITest
