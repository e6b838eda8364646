#include "tests/support/RandomTypes.h"

#include "RTTI/AggregateClasses.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace RTTITest {

using namespace RTTI;

namespace {

unsigned int below(std::mt19937& random, std::size_t limit) {
    return static_cast<unsigned int>(random() % limit);
}

bool oneIn(std::mt19937& random, std::size_t chances) { return below(random, chances) == 0; }

/// Makes the types first, then gives those that hand a question on their references, the aggregates
/// last.
class TypeMaker {
public:
    explicit TypeMaker(std::mt19937& random)
        : m_random(random), m_oddLeaves(2 + below(random, 12)) {}

    LinkedTypes make() {
        const unsigned int count = 1 + below(m_random, oneIn(m_random, 10) ? 12 : 8);
        for (unsigned int id = 0; id < count; ++id)
            addType();
        for (unsigned int id = 0; id < count; ++id)
            connectForwarding(id);
        for (unsigned int id = 0; id < count; ++id)
            connectAggregate(id);
        return std::move(m_types);
    }

private:
    void addType() {
        switch (below(m_random, 10)) {
        case 0:
        case 1:
        case 2: m_types.classType(); break;
        case 3:
        case 4:
        case 5: m_types.record(recordKind()); break;
        case 6: addArray(); break;
        case 7: m_types.alias(NO_TYPE_ID, randomRanges(m_random)); break;
        case 8:
            if (oneIn(m_random, 2))
                m_types.discreteEnum(NO_TYPE_ID, randomRanges(m_random));
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
        const std::size_t dimensions = below(m_random, 3);
        m_types.array(kind, NO_TYPE_ID, dimensions, randomRanges(m_random));
    }

    /// Mostly "2-State", so that questions go deep.
    void addLeaf() {
        if (!oneIn(m_random, m_oddLeaves)) {
            switch (below(m_random, 3)) {
            case 0: m_types.string(); break;
            case 1: m_types.add<RTEventType>(); break;
            default: m_types.seqEnum(ENCODING_2_STATE);
            }
            return;
        }
        switch (below(m_random, 5)) {
        case 0: m_types.seqEnum(static_cast<ValueEncoding>(below(m_random, 4))); break;
        case 1:
            m_types.add<RTFloatType>().m_floatKind = static_cast<int>(below(m_random, 3));
            break;
        case 2: m_types.add<RTIntType>().m_flags = static_cast<unsigned int>(m_random()); break;
        case 3: m_types.add<RTAccessType>(); break;
        default: m_types.queue(NO_TYPE_ID);
        }
    }

    /// Where the type with this id hands questions on to; null for any other type.
    unsigned int* nextOf(unsigned int id) {
        RTBaseType& type = m_types[id];
        if (auto* array = dynamic_cast<RTArrayType*>(&type))
            return &array->m_elementTypeId;
        if (auto* alias = dynamic_cast<RTTypedefType*>(&type))
            return &alias->m_dataTypeId;
        if (auto* enumeration = dynamic_cast<RTDiscreteEnumType*>(&type))
            return &enumeration->m_baseTypeId;
        return nullptr;
    }

    /// Types that hand questions on lead to such types that were made before them, to aggregates
    /// and to leaves; access types, which no query looks behind, anywhere.
    void connectForwarding(unsigned int id) {
        if (auto* access = dynamic_cast<RTAccessType*>(&m_types[id]))
            access->m_refTypeId = randomId(m_types, m_random);
        unsigned int* const next = nextOf(id);
        if (next == nullptr || oneIn(m_random, 12))
            return;
        const unsigned int target = randomId(m_types, m_random);
        if (target < id || nextOf(target) == nullptr)
            *next = target;
    }

    void connectAggregate(unsigned int id) {
        if (!isAggregate(m_types[id].GetClassId()))
            return;
        if (m_types[id].GetClassId() == ClassId::CLASS && oneIn(m_random, 2))
            connectBase(id);
        const unsigned int members = below(m_random, 4);
        for (unsigned int i = 0; i < members; ++i) {
            const bool isMissing = oneIn(m_random, 24);
            const unsigned int target = isMissing ? NO_TYPE_ID : randomId(m_types, m_random);
            m_types.addMember(id, target, randomRanges(m_random));
        }
    }

    /// A class behind the base type must have been made before this one, any other type will do.
    void connectBase(unsigned int id) {
        const unsigned int target = randomId(m_types, m_random);
        unsigned int behind = target;
        for (const unsigned int* next = nextOf(behind); next != nullptr && *next != NO_TYPE_ID;
             next = nextOf(behind))
            behind = *next;
        if (behind < id || m_types[behind].GetClassId() != ClassId::CLASS)
            m_types.as<RTClassType>(id).m_baseClassTypeId = target;
    }

    std::mt19937& m_random;
    std::size_t m_oddLeaves;
    LinkedTypes m_types;
};

} // namespace

unsigned int randomId(const LinkedTypes& types, std::mt19937& random) {
    return below(random, types.size());
}

LinkedTypes randomTypes(std::mt19937& random) { return TypeMaker(random).make(); }

Ranges randomRanges(std::mt19937& random) {
    static constexpr std::array<FullConstraints, 7> choices{
        {{0, 7, 1}, {3, 0, 0}, {0, 3, 1}, {1, 4, 1}, OPEN, OPEN, FULL_RANGE}};
    Ranges ranges(below(random, 4));
    std::generate(ranges.begin(), ranges.end(),
                  [&] { return choices[below(random, choices.size())]; });
    return ranges;
}

} // namespace RTTITest
